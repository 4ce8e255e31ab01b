#pragma once

#include <QDialog>
#include <memory>

#include "qt/binding/Bindings.h"

namespace Ui {
class LeftOut;
}

namespace orv {

struct LeftOutOutlets;

/// Why folders and files are not counted.
class LeftOutWindow final : public QDialog {
    Q_OBJECT

 public:
    /// Context and outlets outlive it. `parent`, which may be null, waits while it is open.
    LeftOutWindow(const WindowContext& context, LeftOutOutlets& outlets, QWidget* parent);
    ~LeftOutWindow() override;

 private:
    std::unique_ptr<Ui::LeftOut> ui_;
    std::unique_ptr<Bindings> bindings_;
};

}  // namespace orv

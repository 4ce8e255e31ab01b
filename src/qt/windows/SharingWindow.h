#pragma once

#include <QDialog>
#include <memory>

#include "qt/binding/Bindings.h"

namespace Ui {
class SharingWindow;
}

namespace orv {

struct SharingOutlets;

/// In which the person chooses what to back up.
class SharingWindow final : public QDialog {
    Q_OBJECT

 public:
    /// Context and outlets outlive it. `parent`, which may be null, waits while it is open.
    SharingWindow(const WindowContext& context, SharingOutlets& outlets, QWidget* parent);
    ~SharingWindow() override;

 private:
    std::unique_ptr<Ui::SharingWindow> ui_;
    std::unique_ptr<Bindings> bindings_;
};

}  // namespace orv

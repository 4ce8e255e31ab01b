#pragma once

#include <QDialog>
#include <memory>

#include "qt/binding/Bindings.h"

namespace Ui {
class OnlinePassword;
}

namespace orv {

struct OnlinePasswordOutlets;

/// Asks for the account's password.
class OnlinePasswordWindow final : public QDialog {
    Q_OBJECT

 public:
    /// Context and outlets outlive it. `parent`, which may be null, waits while it is open.
    OnlinePasswordWindow(const WindowContext& context, OnlinePasswordOutlets& outlets,
                         QWidget* parent);
    ~OnlinePasswordWindow() override;

 private:
    std::unique_ptr<Ui::OnlinePassword> ui_;
    std::unique_ptr<Bindings> bindings_;
};

}  // namespace orv

#include "qt/windows/OnlinePasswordWindow.h"

#include <ui_OnlinePassword.h>

#include "pane/password/OnlinePasswordOutlets.h"
#include "qt/binding/Mnemonics.h"
#include "qt/windows/PrepareWindow.h"

namespace orv {

OnlinePasswordWindow::OnlinePasswordWindow(const WindowContext& context,
                                           OnlinePasswordOutlets& outlets, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::OnlinePassword>()) {
    ui_->setupUi(this);
    PrepareWindow(*this, context);
    bindings_ = std::make_unique<Bindings>(context, *this);
    bindings_->bind(outlets._firstLine, ui_->_firstLine);
    bindings_->bind(outlets._password, ui_->_password);
    bindings_->bind(outlets._message, ui_->_message);
    bindings_->bind(outlets._rememberPassword, ui_->_rememberPassword);
    bindings_->bind(outlets._okButton, ui_->_okButton);
    bindings_->bind(outlets._cancelButton, ui_->_cancelButton);
    bindings_->bind(outlets._indicator, ui_->_indicator);
    AssignMnemonics(*this);
    bindings_->bind(outlets._enterPasswordWindow, this);
}

OnlinePasswordWindow::~OnlinePasswordWindow() = default;

}  // namespace orv

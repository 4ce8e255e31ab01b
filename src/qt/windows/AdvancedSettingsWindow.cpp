#include "qt/windows/AdvancedSettingsWindow.h"

#include <ui_AdvancedSettings.h>

#include "pane/settings/AdvancedSettingsOutlets.h"
#include "qt/binding/Mnemonics.h"
#include "qt/windows/PrepareWindow.h"

namespace orv {

AdvancedSettingsWindow::AdvancedSettingsWindow(const WindowContext& context,
                                               AdvancedSettingsOutlets& outlets, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::AdvancedSettings>()) {
    ui_->setupUi(this);
    PrepareWindow(*this, context);
    bindings_ = std::make_unique<Bindings>(context, *this);
    bindings_->bind(outlets._lockedNotice, ui_->_lockedNotice);
    bindings_->bind(outlets._showNotifications, ui_->_showNotifications);
    bindings_->bind(outlets._greenCheckmarks, ui_->_greenCheckmarks);
    bindings_->bind(outlets._smartBadge, ui_->_smartBadge);
    bindings_->bind(outlets._smartLocking, ui_->_smartLocking);
    bindings_->bind(outlets._selectiveSync, ui_->_selectiveSync);
    bindings_->bind(outlets._closeButton, ui_->_closeButton);
    AssignMnemonics(*this);
    bindings_->bind(outlets._advancedSettingsWindow, this);
}

AdvancedSettingsWindow::~AdvancedSettingsWindow() = default;

}  // namespace orv

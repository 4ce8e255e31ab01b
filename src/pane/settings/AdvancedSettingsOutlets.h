#pragma once

#include "widgets/Outlets.h"

namespace orv {

/// What the window of advanced settings shows. A check box acts at once.
struct AdvancedSettingsOutlets {
    DialogWindow _advancedSettingsWindow;
    CheckBox _showNotifications;
    CheckBox _greenCheckmarks;
    CheckBox _smartLocking;
    CheckBox _smartBadge;
    CheckBox _selectiveSync;
    /// Why nothing can be changed; hidden when it can.
    TextField _lockedNotice;
    Button _closeButton;
};

}  // namespace orv

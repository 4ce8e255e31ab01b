#pragma once

#include "widgets/Outlets.h"

namespace orv {

/// What the window shows in which the account's password is asked for.
struct OnlinePasswordOutlets {
    DialogWindow _enterPasswordWindow;
    TextField _firstLine;
    /// What is typed; shown as dots.
    TextField _password;
    /// Why the password was not accepted; hidden until then.
    TextField _message;
    CheckBox _rememberPassword;
    Button _okButton;
    Button _cancelButton;
    ProgressIndicator _indicator;
};

}  // namespace orv

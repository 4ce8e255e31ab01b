#pragma once

#include "accounts/AccountList.h"
#include "pane/status/StatusInputs.h"

namespace orv {

/// Takes what the status depends on from the settings as they were read last; `active` is the
/// account whose agent is addressed.
void TakeAccountSettings(StatusInputs& inputs, const AccountList& accounts, const Account& settings,
                         const Account& active);

}  // namespace orv

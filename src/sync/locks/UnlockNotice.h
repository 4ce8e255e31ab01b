#pragma once

#include "sync/locks/Lock.h"

namespace orv {

/// Shows or hides the notice that the file is unlocked as soon as its upload is complete, unless
/// that has been done. The agent shows it.
void ShowUnlockNotice(Lock& lock, bool shown);

}  // namespace orv

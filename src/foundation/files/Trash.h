#pragma once

#include <string>

#include "foundation/files/StatusCode.h"

namespace quelm {

/// The folder that holds the user's trashed files; empty when the desktop has none.
[[nodiscard]] std::string GetUserTrashFolder();

}  // namespace quelm

namespace quelm::os {

/// Moves a file or folder to the user's trash. Where its name is taken there it gets the time
/// (" 3.07.45 PM") and then a number before its extension. A file on another volume than the trash
/// stays, with MOVE_INVALID_DEVICE.
EStatusCode MoveToTrash(const std::string& path);

}  // namespace quelm::os

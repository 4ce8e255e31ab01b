#pragma once

#include <string>

#include "accounts/StorageFoldersInfo.h"

namespace orv {

/// What the status of a backup folder depends on.
struct FolderState {
    /// By policy; hides all others.
    bool excluded = false;
    bool exists = true;
    /// Of a folder that does not exist: it is on a volume that is not there.
    bool offline = false;
    /// None while the agent knows nothing of it.
    const orv_StorageFolderStatus* record = nullptr;
};

/// "Fully Backed Up (1.5 GB)", "25% Backed Up" or why it is not backed up. Below 100 bytes the
/// percentage is the number of bytes stored.
[[nodiscard]] std::string FolderStatusText(const FolderState& state);

}  // namespace orv

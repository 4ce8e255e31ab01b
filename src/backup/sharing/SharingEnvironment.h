#pragma once

#include "accounts/AccountList.h"
#include "backup/sharing/SharingWindows.h"
#include "foundation/threads/Background.h"
#include "platform/Services.h"
#include "widgets/Alerts.h"
#include "widgets/FilePanels.h"

namespace orv {

/// What the choice of folders works with; all outlive it.
struct SharingEnvironment {
    /// Run loop, volumes and workspace are there.
    platform::Services& services;
    /// For files of the account.
    quelm::Background& background;
    /// For looking at folders, whose volumes may not answer at all.
    quelm::Background& folderBackground;
    /// For what was scanned: memory alone.
    quelm::Background& scanBackground;
    /// For counting what is hidden, which takes as long as a scan.
    quelm::Background& hiddenBackground;
    Alerts& alerts;
    FilePanels& filePanels;
    SharingWindows& windows;
};

}  // namespace orv

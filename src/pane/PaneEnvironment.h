#pragma once

#include <cstdint>

#include "accounts/AccountList.h"
#include "agentlink/AgentEventDispatcher.h"
#include "foundation/threads/WatchedBackground.h"
#include "pane/PaneWindows.h"
#include "pane/agent/AgentApplication.h"
#include "platform/Services.h"
#include "sync/locks/LockedFilesList.h"
#include "sync/projects/ProjectsList.h"
#include "widgets/Alerts.h"
#include "widgets/Clipboard.h"
#include "widgets/FilePanels.h"

namespace orv {

/// The list of permission violations, as far as the status needs it.
class ViolationCount {
 public:
    virtual ~ViolationCount() = default;
    [[nodiscard]] virtual std::int64_t numberOfViolations() const = 0;
};

/// What the panel works with; all outlive it.
struct PaneEnvironment {
    /// Run loop, notifications, workspace and keychain are there.
    platform::Services& services;
    AgentEventDispatcher& dispatcher;
    AccountList& accounts;
    ProjectsList& projects;
    LockedFilesList& locks;
    /// For files.
    quelm::WatchedBackground& background;
    /// For the bus and the keychain, which may take their time.
    quelm::Background& serviceBackground;
    /// For looking at the folders to back up, whose volumes may not answer at all.
    quelm::Background& folderBackground;
    /// For what was scanned: memory alone.
    quelm::Background& scanBackground;
    /// For counting what is hidden, which takes as long as a scan.
    quelm::Background& hiddenBackground;
    Alerts& alerts;
    FilePanels& filePanels;
    Clipboard& clipboard;
    AgentApplication& application;
    PaneWindows& windows;
    const ViolationCount& violations;
};

}  // namespace orv

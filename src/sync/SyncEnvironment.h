#pragma once

#include "accounts/AccountList.h"
#include "agentlink/AgentEventDispatcher.h"
#include "foundation/threads/Background.h"
#include "platform/LocalNotifications.h"
#include "platform/RunLoop.h"

namespace orv {

/// What the lists of projects and locks work with; all outlive them.
struct SyncEnvironment {
    platform::RunLoop& runLoop;
    platform::LocalNotifications& notifications;
    AgentEventDispatcher& dispatcher;
    AccountList& accounts;
    /// Reads files; null: they are read at once.
    quelm::Background* background = nullptr;
};

/// Of the process's services, which have a run loop, and its shared lists.
[[nodiscard]] SyncEnvironment ProcessSyncEnvironment(quelm::Background* background = nullptr);

}  // namespace orv

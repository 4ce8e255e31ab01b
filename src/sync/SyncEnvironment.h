#pragma once

#include "accounts/AccountList.h"
#include "agentlink/AgentEventDispatcher.h"
#include "platform/LocalNotifications.h"
#include "platform/RunLoop.h"

namespace orv {

/// What the lists of projects and locks work with; all outlive them.
struct SyncEnvironment {
    platform::RunLoop& runLoop;
    platform::LocalNotifications& notifications;
    AgentEventDispatcher& dispatcher;
    AccountList& accounts;
};

/// Of the process's services, which have a run loop, and its shared lists.
[[nodiscard]] SyncEnvironment ProcessSyncEnvironment();

}  // namespace orv

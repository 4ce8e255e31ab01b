#include "sync/SyncEnvironment.h"

#include "platform/Services.h"

namespace orv {

SyncEnvironment ProcessSyncEnvironment(quelm::Background* background) {
    const platform::Services& services = platform::ProcessServices();
    return {*services.runLoop, *services.localNotifications,
            AgentEventDispatcher::defaultDispatcher(), AccountList::defaultAccountList(),
            background};
}

}  // namespace orv

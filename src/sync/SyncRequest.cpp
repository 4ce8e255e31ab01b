#include "sync/SyncRequest.h"

#include <string>
#include <utility>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "config/AccountId.h"
#include "config/PropertyAccess.h"

namespace orv {

void SendSyncRequest(const char* command, quelm::Dictionary pairs) {
    pairs.set(keys::command, command);
    QueueAgentEvent(projectsAgent, events::syncRequest, std::move(pairs));
}

void RequestSubscribedProjects(bool computeSynced) {
    SendSyncRequest(commands::subscribedProjects,
                    {{keys::computeSynced, computeSynced ? "1" : "0"}});
}

void RequestNotSubscribedProjects() {
    SendSyncRequest(commands::notSubscribedProjects);
}

bool IsFromProjectsAgent(const quelm::Dictionary& payload) {
    const auto agent = GetStringProperty(payload, keys::agentId);
    return !agent || IsSameAccount(*agent, projectsAgent);
}

}  // namespace orv

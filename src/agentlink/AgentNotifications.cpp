#include "agentlink/AgentNotifications.h"

#include <cstdio>
#include <utility>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "platform/Services.h"

namespace orv {

namespace {

std::string& objectId() {
    static std::string id = defaultNotificationObject;
    return id;
}

void post(const char* name, const AgentId& agentId, quelm::Dictionary payload) {
    if (agentId) payload.set(keys::agentId, *agentId);
    const auto& center = platform::ProcessServices().notifications;
    if (center) center->post(name, NotificationObjectId(), payload);
}

}  // namespace

void SetNotificationObjectID(const std::string& newObjectId) {
    objectId() = newObjectId;
}

const std::string& NotificationObjectId() {
    return objectId();
}

void NotifyAgentSettingsChanged(const AgentId& agentId, std::uint32_t hint) {
    post(notifications::settingsChanged, agentId, {{keys::hint, hint}});
}

void NotifyConnectionStatusChanged(const AgentId& agentId, std::int32_t status,
                                   std::int64_t timestamp) {
    post(notifications::connectionStatusChanged, agentId,
         {{keys::status, status}, {keys::timestamp, timestamp}});
}

void NotifyAgentError(const AgentId& agentId, const std::string& tag, const std::string& message,
                      std::int32_t domain, std::int32_t code) {
    post(notifications::agentError, agentId,
         {{keys::tag, tag}, {keys::message, message}, {keys::domain, domain}, {keys::code, code}});
}

void NotifyAgentReportStatus(const AgentId& agentId) {
    post(notifications::reportStatus, agentId, {});
}

void NotifyAgentEvent(const AgentId& agentId, const std::string& eventName,
                      std::initializer_list<AgentEventArgument> arguments) {
    quelm::Dictionary payload;
    for (const AgentEventArgument& argument : arguments) {
        if (!argument.key) break;
        if (!argument.value) {
            std::fputs("NotifyAgentEvent: NULL value; skipping.", stderr);
            break;
        }
        payload.set(argument.key, *argument.value);
    }
    QueueAgentEvent(agentId, eventName, std::move(payload));
}

}  // namespace orv

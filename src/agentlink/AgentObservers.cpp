#include "agentlink/AgentObservers.h"

#include <chrono>
#include <utility>

#include "agentlink/AgentVocabulary.h"
#include "config/PropertyAccess.h"
#include "platform/Services.h"

namespace orv {

using quelm::Dictionary;

namespace {

void observe(AgentObserverRecord& record, const char* name,
             platform::DistributedNotificationCenter::Handler handler) {
    const auto& center = platform::ProcessServices().notifications;
    if (!center) return;
    record.keep(center->observe(name, NotificationObjectId(), std::move(handler)));
}

AgentId agentIdOf(const Dictionary& payload) {
    return GetStringProperty(payload, keys::agentId);
}

bool hasNumber(const Dictionary& payload, const char* key) {
    const quelm::Value* value = payload.find(key);
    return value && (value->asInteger() || value->asReal());
}

std::int64_t now() {
    const auto& runLoop = platform::ProcessServices().runLoop;
    return std::chrono::system_clock::to_time_t(runLoop ? runLoop->now()
                                                        : std::chrono::system_clock::now());
}

}  // namespace

void RemoveAgentObserver(AgentObserverRecord& record) {
    record.clear();
}

void ObserveAgentSettings(AgentObserverRecord& record, AgentSettingsHandler handler) {
    observe(record, notifications::settingsChanged,
            [handler = std::move(handler)](const Dictionary& payload) {
                const auto hint = GetIntPropertyWithDefault(payload, keys::hint, HintUnknown);
                handler(agentIdOf(payload), static_cast<std::uint32_t>(hint));
            });
}

void ObserveConnectionStatus(AgentObserverRecord& record, ConnectionStatusHandler handler) {
    observe(record, notifications::connectionStatusChanged,
            [handler = std::move(handler)](const Dictionary& payload) {
                if (!hasNumber(payload, keys::status)) return;
                const auto timestamp = hasNumber(payload, keys::timestamp)
                                           ? GetLongProperty(payload, keys::timestamp)
                                           : now();
                handler(agentIdOf(payload), GetIntProperty(payload, keys::status), timestamp);
            });
}

void ObserveAgentError(AgentObserverRecord& record, AgentErrorHandler handler) {
    observe(record, notifications::agentError,
            [handler = std::move(handler)](const Dictionary& payload) {
                const auto domain = GetIntProperty(payload, keys::domain);
                // Senders put the same number in both; the one that counts is the domain's.
                const auto code = payload.find(keys::code) ? domain : 0;
                handler(agentIdOf(payload), GetStringPropertyWithDefault(payload, keys::tag, ""),
                        GetStringPropertyWithDefault(payload, keys::message, ""), domain, code);
            });
}

void ObserveAgentReportStatus(AgentObserverRecord& record, ReportStatusHandler handler) {
    observe(
        record, notifications::reportStatus,
        [handler = std::move(handler)](const Dictionary& payload) { handler(agentIdOf(payload)); });
}

void ObserveAgentEvent(AgentObserverRecord& record, AgentEventHandler handler) {
    observe(record, notifications::agentEvent,
            [handler = std::move(handler)](const Dictionary& payload) {
                handler(agentIdOf(payload),
                        GetStringPropertyWithDefault(payload, keys::eventName, ""), payload);
            });
}

}  // namespace orv

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "agentlink/AgentNotifications.h"
#include "platform/DistributedNotificationCenter.h"
#include "platform/Value.h"

// Registers plain functions that are called with what a notification holds. Main thread only.

namespace orv {

/// One registration of a target and a function; its owner keeps it, as a member as a rule. It ends
/// with RemoveAgentObserver or with the record. One target may have several records.
class AgentObserverRecord {
 public:
    AgentObserverRecord() = default;
    AgentObserverRecord(const AgentObserverRecord&) = delete;
    AgentObserverRecord& operator=(const AgentObserverRecord&) = delete;

    using Observation = platform::DistributedNotificationCenter::Observation;
    void keep(std::unique_ptr<Observation> observation) {
        observations_.push_back(std::move(observation));
    }
    void clear() { observations_.clear(); }

 private:
    std::vector<std::unique_ptr<Observation>> observations_;
};

/// Removes the record's registrations for every notification.
void RemoveAgentObserver(AgentObserverRecord& record);

// What the registered functions are called with. A value that is missing or of another type has
// its default: the hint HintUnknown, the time now, "" and 0. A status that is missing calls
// nothing.

using AgentSettingsHandler = std::function<void(const AgentId&, std::uint32_t hint)>;
using ConnectionStatusHandler =
    std::function<void(const AgentId&, std::int32_t status, std::int64_t timestamp)>;
using AgentErrorHandler =
    std::function<void(const AgentId&, const std::string& tag, const std::string& message,
                       std::int32_t domain, std::int32_t code)>;
using ReportStatusHandler = std::function<void(const AgentId&)>;
using AgentEventHandler = std::function<void(const AgentId&, const std::string& eventName,
                                             const quelm::Dictionary& payload)>;

void ObserveAgentSettings(AgentObserverRecord& record, AgentSettingsHandler handler);
void ObserveConnectionStatus(AgentObserverRecord& record, ConnectionStatusHandler handler);
void ObserveAgentError(AgentObserverRecord& record, AgentErrorHandler handler);
void ObserveAgentReportStatus(AgentObserverRecord& record, ReportStatusHandler handler);
void ObserveAgentEvent(AgentObserverRecord& record, AgentEventHandler handler);

// The same for a target and a function.

template <class Target>
void RegisterAgentSettingsObserver(AgentObserverRecord& record, Target* target,
                                   void (*function)(Target&, const AgentId&, std::uint32_t)) {
    ObserveAgentSettings(record, std::bind_front(function, std::ref(*target)));
}
template <class Target>
void RegisterConnectionStatusObserver(AgentObserverRecord& record, Target* target,
                                      void (*function)(Target&, const AgentId&, std::int32_t,
                                                       std::int64_t)) {
    ObserveConnectionStatus(record, std::bind_front(function, std::ref(*target)));
}
template <class Target>
void RegisterAgentErrorObserver(AgentObserverRecord& record, Target* target,
                                void (*function)(Target&, const AgentId&, const std::string&,
                                                 const std::string&, std::int32_t, std::int32_t)) {
    ObserveAgentError(record, std::bind_front(function, std::ref(*target)));
}
template <class Target>
void RegisterAgentReportStatusObserver(AgentObserverRecord& record, Target* target,
                                       void (*function)(Target&, const AgentId&)) {
    ObserveAgentReportStatus(record, std::bind_front(function, std::ref(*target)));
}
template <class Target>
void RegisterAgentEventObserver(AgentObserverRecord& record, Target* target,
                                void (*function)(Target&, const AgentId&, const std::string&,
                                                 const quelm::Dictionary&)) {
    ObserveAgentEvent(record, std::bind_front(function, std::ref(*target)));
}

// Functions to register that call the target's operation for the notification.

template <class Target>
void ForwardAgentEvent(Target& target, const AgentId& agentId, const std::string& eventName,
                       const quelm::Dictionary& payload) {
    target.notifyAgentEvent(eventName, payload, agentId);
}
template <class Target>
void ForwardConnectionStatus(Target& target, const AgentId& agentId, std::int32_t status,
                             std::int64_t timestamp) {
    target.notifyConnectionStatus(status, timestamp, agentId);
}
template <class Target>
void ForwardAgentSettingsEvent(Target& target, const AgentId& agentId, std::uint32_t hint) {
    target.notifyAgentSettings(hint, agentId);
}
template <class Target>
void ForwardConnectionError(Target& target, const AgentId& agentId, const std::string& tag,
                            const std::string& message, std::int32_t domain, std::int32_t code) {
    target.notifyConnectionError(tag, message, domain, code, agentId);
}

}  // namespace orv

#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Value.h"

// What panel and agent post. Any thread; nothing waits for the bus. Without a notification center
// in the process's services nothing is posted.

namespace orv {

/// The account a notification concerns; none concerns every account.
using AgentId = std::optional<std::string>;

/// Replaces the object string of later posts and registrations. Main thread, before the first.
void SetNotificationObjectID(const std::string& objectId);
[[nodiscard]] const std::string& NotificationObjectId();

/// `hint` is of SettingsHint bits.
void NotifyAgentSettingsChanged(const AgentId& agentId, std::uint32_t hint);
/// `status` is a ConnectionStatus, `timestamp` in seconds since 1970.
void NotifyConnectionStatusChanged(const AgentId& agentId, std::int32_t status,
                                   std::int64_t timestamp);
/// Receivers read the code from the domain: send the same number in both.
void NotifyAgentError(const AgentId& agentId, const std::string& tag, const std::string& message,
                      std::int32_t domain, std::int32_t code);
void NotifyAgentReportStatus(const AgentId& agentId);

struct AgentEventArgument {
    /// A null key ends the list.
    const char* key;
    /// None ends the list too, with a message on the standard error stream.
    std::optional<quelm::Value> value;
};

/// Queues an event with these arguments; of equal keys the last wins.
void NotifyAgentEvent(const AgentId& agentId, const std::string& eventName,
                      std::initializer_list<AgentEventArgument> arguments = {});

}  // namespace orv

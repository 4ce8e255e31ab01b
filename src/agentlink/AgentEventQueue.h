#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "agentlink/AgentNotifications.h"
#include "platform/Value.h"

// Agent events go through a queue without a limit and a thread that posts them one by one, in
// order, as fast as the bus takes them. While the bus is away or slow they wait in the queue, and
// nobody who queues waits with them. Any thread.

namespace orv {

/// Adds the agent id and the event's name unless the payload has these keys, and queues it.
void QueueAgentEvent(const AgentId& agentId, const std::string& eventName,
                     quelm::Dictionary payload);

/// For frequent events of which only the newest counts: takes the place of the newest of the last
/// 15 queued events that has the same agent id, name and, where a key is given, the same text under
/// it. Without one it is queued.
void QueueAgentEventCoalesce(const AgentId& agentId, const std::optional<std::string>& eventName,
                             const std::optional<std::string>& coalescingKey,
                             quelm::Dictionary payload);

/// Before the program ends: posts what is queued and sends what is posted, for at most `limit`,
/// then ends the thread and closes the notification center. Events queued later are lost. False
/// when not everything was sent.
bool EndAgentEvents(std::chrono::milliseconds limit);
/// Takes events again, for another notification center.
void BeginAgentEvents();

/// The part of a program in which agent events can be queued.
class AgentEventSession {
 public:
    AgentEventSession() { BeginAgentEvents(); }
    AgentEventSession(const AgentEventSession&) = delete;
    AgentEventSession& operator=(const AgentEventSession&) = delete;
    ~AgentEventSession() { EndAgentEvents(std::chrono::seconds(2)); }
};

}  // namespace orv

#pragma once

#include <string_view>

#include "platform/Value.h"

namespace orv {

/// The account whose agent keeps the projects.
inline constexpr const char* projectsAgent = "1";

/// Asks that agent for something: queues the event "sync_request" with the command and what else it
/// takes. Any thread.
void SendSyncRequest(const char* command, quelm::Dictionary pairs = {});

// The requests that need no list.
void RequestSubscribedProjects(bool computeSynced);
void RequestNotSubscribedProjects();

/// Whether an event may come from that agent: one that names another account does not.
[[nodiscard]] bool IsFromProjectsAgent(const quelm::Dictionary& payload);

}  // namespace orv

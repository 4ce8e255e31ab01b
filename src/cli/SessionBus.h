#pragma once

#include <string>

#include "cli/Command.h"
#include "platform/DistributedNotificationCenter.h"

namespace orv::cli {

// What commands ask of the bus; each waits at most two seconds.

/// Null when no bus answers in time.
[[nodiscard]] platform::DistributedNotificationCenter* ConnectedBus();
/// Whether the account's agent is known on the bus, which may be null.
[[nodiscard]] bool IsAgentThere(platform::DistributedNotificationCenter* bus,
                                const std::string& agentId);
/// Says that no bus answers; NoAgent.
ExitCode FailWithoutBus(Console& console);
/// Sends what was posted; nothing can be posted afterwards. Failed, and said, when the bus is too
/// busy.
[[nodiscard]] ExitCode SendPosted(Console& console);

}  // namespace orv::cli

#include "cli/SessionBus.h"

#include <chrono>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentPresence.h"
#include "cli/Complaint.h"
#include "foundation/system/LocalizedString.h"
#include "platform/Services.h"

namespace orv::cli {

namespace {

constexpr std::chrono::seconds patienceWithBus(2);

}  // namespace

platform::DistributedNotificationCenter* ConnectedBus() {
    const auto& center = platform::ProcessServices().notifications;
    return center && center->waitUntilListening(patienceWithBus) ? center.get() : nullptr;
}

bool IsAgentThere(platform::DistributedNotificationCenter* bus, const std::string& agentId) {
    return bus && bus->isAnnounced(AgentPresenceName(agentId), patienceWithBus);
}

ExitCode FailWithoutBus(Console& console) {
    return Fail(console, ExitCode::NoAgent,
                quelm::GetLocalizedString("Link.NoBus",
                                          "No session bus answers, so nothing was sent. Is "
                                          "DBUS_SESSION_BUS_ADDRESS set?"));
}

ExitCode SendPosted(Console& console) {
    if (EndAgentEvents(patienceWithBus)) return ExitCode::Done;
    return Fail(console, ExitCode::Failed,
                quelm::GetLocalizedString("Link.NotSent",
                                          "The session bus is too busy and did not take it. Try "
                                          "again."));
}

}  // namespace orv::cli

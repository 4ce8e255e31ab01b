#include "cli/SettingsHint.h"

#include <chrono>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentNotifications.h"
#include "config/ConfigurationPath.h"
#include "foundation/system/LocalizedString.h"
#include "platform/Services.h"

namespace orv::cli {

namespace {

// a bus on this computer answers within milliseconds, and the change is stored already
constexpr std::chrono::milliseconds patience(500);

bool announce(SettingsHint hint) {
    const auto& bus = platform::ProcessServices().notifications;
    if (!bus || !bus->waitUntilListening(patience)) return false;
    NotifyAgentSettingsChanged(AgentID.empty() ? "1" : AgentID, hint);
    return EndAgentEvents(patience);
}

}  // namespace

void AnnounceSettings(Console& console, SettingsHint hint) {
    if (announce(hint)) return;
    fmt::print(console.err, "orvctl: {}\n",
               quelm::GetLocalizedString(
                   "Cli.NotAnnounced",
                   "It was stored, but no session bus answers: programs that run see it only when "
                   "they read the file again."));
}

}  // namespace orv::cli

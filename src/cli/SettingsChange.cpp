#include "cli/SettingsChange.h"

#include <chrono>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentNotifications.h"
#include "cli/Complaint.h"
#include "config/ConfigurationPath.h"
#include "foundation/system/LocalizedString.h"
#include "pane/settings/SettingsCycle.h"
#include "platform/Services.h"

namespace orv::cli {

std::string AccountOfCommandLine() {
    return AgentID.empty() ? "1" : AgentID;
}

void MakeConfigurationFolder() {
    static_cast<void>(checkApplicationDirectory(GetConfigurationPath()));
}

void AnnounceSettingsChange(std::uint32_t hint, Console& console) {
    // the change is stored: what is left is not worth a longer wait
    constexpr std::chrono::milliseconds patience(500);
    const auto& center = platform::ProcessServices().notifications;
    if (center && center->waitUntilListening(patience)) {
        NotifyAgentSettingsChanged(AccountOfCommandLine(), hint);
        if (EndAgentEvents(patience)) return;
    }
    Say(console, quelm::GetLocalizedString("Cli.NotAnnounced",
                                           "The change is stored, but no session bus answers: a "
                                           "running agent learns of it at its next start."));
}

}  // namespace orv::cli

#include "cli/AgentConversation.h"

#include <utility>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentPresence.h"
#include "cli/Complaint.h"
#include "foundation/system/LocalizedString.h"
#include "platform/Services.h"
#include "sync/SyncRequest.h"

namespace orv::cli {

AgentConversation::AgentConversation(Take take) : take_(std::move(take)) {
    constexpr std::chrono::seconds patience(2);
    ObserveAgentEvent(record_, [this](const AgentId&, const std::string& event,
                                      const quelm::Dictionary& payload) { hear(event, payload); });
    const auto& center = platform::ProcessServices().notifications;
    isAgentThere_ = center && center->waitUntilListening(patience) &&
                    center->isAnnounced(AgentPresenceName(projectsAgent), patience);
}

AgentConversation::~AgentConversation() {
    EndAgentEvents(std::chrono::seconds(2));
}

void AgentConversation::ask(const std::function<void()>& request, std::chrono::milliseconds limit,
                            Console& console) {
    constexpr std::chrono::milliseconds unnoticed(1100);
    platform::RunLoop& runLoop = *platform::ProcessServices().runLoop;
    notice_ = runLoop.after(unnoticed, [&console] {
        Say(console,
            quelm::GetLocalizedString("Cli.Waiting", "Waiting for the agent to answer..."));
    });
    request();
    do {
        heard_ = Heard::Nothing;
        const auto timer = runLoop.after(limit, [&runLoop] { runLoop.stopModal(0); });
        runLoop.runModal();
    } while (heard_ == Heard::More);
    notice_.reset();
}

void AgentConversation::hear(const std::string& event, const quelm::Dictionary& payload) {
    if (heard_ == Heard::Last || !IsFromProjectsAgent(payload)) return;
    const Heard heard = take_(event, payload);
    if (heard == Heard::Nothing) return;
    heard_ = heard;
    notice_.reset();
    platform::ProcessServices().runLoop->stopModal(0);
}

ExitCode FailWithoutAgent(Console& console) {
    return Fail(console, ExitCode::NoAgent,
                quelm::FormatLocalizedString(
                    "Cli.NoAgent",
                    "No agent of account %@ is known on the session bus. Start it with "
                    "orvAgent %@.",
                    {projectsAgent, projectsAgent}));
}

}  // namespace orv::cli

#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "agentlink/AgentVocabulary.h"
#include "cli/AgentConversation.h"
#include "cli/Commands.h"
#include "cli/SettingsAsStored.h"
#include "cli/ValueText.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/texts/VisibleText.h"
#include "sync/SyncRequest.h"
#include "sync/locks/LockedItems.h"

namespace orv::cli {

namespace {

/// The agent reports lock by lock and does not say which is the last.
constexpr std::chrono::seconds silence(1);

std::string lineOf(const Lock& lock) {
    const std::string holder =
        lock.isMine()
            ? quelm::GetLocalizedString("Locks.Mine", "locked by you")
            : quelm::FormatLocalizedString("Locks.Other", "locked by %@", {lock.lockHolder()});
    return quelm::VisibleText(lock.path() + ": " + holder);
}

}  // namespace

ExitCode ListLocks(const Arguments& arguments, Console& console) {
    const orvAgentSettings settings = SettingsAsStored();
    LockedItems items;
    AgentConversation conversation([&](const std::string& event, const quelm::Dictionary& payload) {
        if (event != events::syncItem) return AgentConversation::Heard::Nothing;
        items.processFileID(LockItemOf(payload), settings.teamName().value_or(""), settings.rcid());
        return AgentConversation::Heard::More;
    });
    if (!conversation.isAgentThere()) return FailWithoutAgent(console);
    conversation.ask([] { SendSyncRequest(commands::requestLockedItems); }, silence, console);
    quelm::Array rows;
    for (const Lock& lock : items.locks()) {
        if (arguments.has("--mine") && !lock.isMine()) continue;
        if (console.json) {
            rows.emplace_back(lock.dictionary());
        } else {
            fmt::print(console.out, "{}\n", lineOf(lock));
        }
    }
    if (console.json) fmt::print(console.out, "{}\n", ValueAsJson(rows));
    return ExitCode::Done;
}

}  // namespace orv::cli

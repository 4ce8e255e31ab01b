#include <algorithm>
#include <charconv>
#include <chrono>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/SessionBus.h"
#include "cli/SettingsChange.h"
#include "config/AccountId.h"
#include "foundation/system/LocalizedString.h"
#include "platform/Services.h"

namespace orv::cli {

namespace {

using quelm::FormatLocalizedString;

/// --agent, else the account of this command line.
std::string agentOf(const Arguments& arguments) {
    return arguments.value("--agent").value_or(AccountOfCommandLine());
}

/// Runs `post`, and sends what it posts before it returns.
template <class Post>
ExitCode send(const Arguments& arguments, Console& console, Post post) {
    const std::string agent = agentOf(arguments);
    if (!IsAccountId(agent)) {
        return Fail(console, ExitCode::Usage,
                    FormatLocalizedString("Cli.BadAccount", "%@ is no account's id", {agent}));
    }
    if (!ConnectedBus()) return FailWithoutBus(console);
    post(agent);
    return SendPosted(console);
}

/// Whether the number is all of the text; decimal, or hexadecimal after "0x".
template <class Number>
bool parseNumber(std::string_view text, Number& number) {
    const bool hexadecimal = text.starts_with("0x");
    if (hexadecimal) text.remove_prefix(2);
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, hexadecimal ? 16 : 10);
    return error == std::errc() && end == text.data() + text.size();
}

ExitCode badNumber(Console& console, const std::string& text) {
    return Fail(console, ExitCode::Usage,
                FormatLocalizedString("Link.BadNumber", "%@ is no number of 32 bits", {text}));
}

/// Whether only an agent does something with the event.
bool isForAgents(const std::string& event) {
    return std::ranges::find(events::forAgentsOnly, event) != events::forAgentsOnly.end();
}

}  // namespace

ExitCode SendEvent(const Arguments& arguments, Console& console) {
    quelm::Dictionary payload;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string& pair = arguments[i];
        const auto equals = pair.find('=');
        if (equals == 0 || equals == pair.npos) {
            return Fail(console, ExitCode::Usage,
                        FormatLocalizedString("Link.BadPair", "%@ is not KEY=VALUE", {pair}));
        }
        payload.set(pair.substr(0, equals), pair.substr(equals + 1));
    }
    const std::string& event = arguments[0];
    bool nobody = false;
    const ExitCode code = send(arguments, console, [&](const std::string& agent) {
        nobody = isForAgents(event) &&
                 !IsAgentThere(platform::ProcessServices().notifications.get(), agent);
        QueueAgentEvent(agent, event, payload);
    });
    if (code != ExitCode::Done || !nobody) return code;
    return Fail(console, ExitCode::NoAgent,
                FormatLocalizedString("Link.NoAgent",
                                      "The event was sent, but no agent of account %@ is known on "
                                      "the session bus. Start it with orvAgent %@.",
                                      {agentOf(arguments), agentOf(arguments)}));
}

ExitCode NotifySettings(const Arguments& arguments, Console& console) {
    std::uint32_t hint = 0;
    if (!parseNumber(arguments[0], hint)) return badNumber(console, arguments[0]);
    return send(arguments, console,
                [&](const std::string& agent) { NotifyAgentSettingsChanged(agent, hint); });
}

ExitCode NotifyStatus(const Arguments& arguments, Console& console) {
    std::int32_t status = 0;
    if (!parseNumber(arguments[0], status)) return badNumber(console, arguments[0]);
    const auto now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    return send(arguments, console, [&](const std::string& agent) {
        NotifyConnectionStatusChanged(agent, status, now);
    });
}

ExitCode NotifyReport(const Arguments& arguments, Console& console) {
    return send(arguments, console,
                [](const std::string& agent) { NotifyAgentReportStatus(agent); });
}

}  // namespace orv::cli

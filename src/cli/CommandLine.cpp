#include <algorithm>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <iterator>
#include <ostream>

#include "cli/Command.h"
#include "cli/Invocation.h"
#include "config/AccountId.h"
#include "config/ConfigurationPath.h"
#include "config/ProductVersion.h"

namespace orv::cli {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

void printHelp(std::ostream& out) {
    fmt::print(out, "{}\n\n{}\n",
               GetLocalizedString("Cli.Usage",
                                  "Usage: orvctl [--account ID] "
                                  "[--json] COMMAND ..."),
               GetLocalizedString("Cli.Commands", "Commands:"));
    for (const Command& command : AllCommands()) {
        fmt::print(out, "  {}{}{}\n      {}\n", command.name, command.parameters.empty() ? "" : " ",
                   command.parameters,
                   GetLocalizedString(command.summary.key, command.summary.defaultText));
    }
    fmt::print(out, "\n{}\n",
               GetLocalizedString("Cli.ExitCodes",
                                  "Exit status: 0 done, 1 refused or failed, 2 wrong usage, 3 no "
                                  "agent on the session bus."));
}

ExitCode usageError(std::ostream& err, std::string_view message) {
    fmt::print(err, "orvctl: {}\n{}\n", message,
               GetLocalizedString("Cli.SeeHelp", "See orvctl --help."));
    return ExitCode::Usage;
}

const Command* findCommand(const std::vector<std::string>& words, std::size_t& used) {
    for (const Command& command : AllCommands()) {
        const auto name = SplitWords(command.name);
        if (words.size() < name.size() || !std::equal(name.begin(), name.end(), words.begin())) {
            continue;
        }
        used = name.size();
        return &command;
    }
    return nullptr;
}

bool fits(const Command& command, const Arguments& arguments) {
    auto own = SplitWords(command.options);
    std::ranges::copy(SplitWords(command.flags), std::back_inserter(own));
    return arguments.size() >= command.minimumArguments &&
           arguments.size() <= command.maximumArguments &&
           std::all_of(arguments.options().begin(), arguments.options().end(),
                       [&own](const Arguments::Option& option) {
                           return std::find(own.begin(), own.end(), option.name) != own.end();
                       });
}

ExitCode runCommand(const Invocation& invocation, std::ostream& out, std::ostream& err,
                    const std::function<void()>& openBus) {
    std::size_t used = 0;
    const Command* command = findCommand(invocation.words, used);
    if (command == nullptr) {
        return usageError(err, FormatLocalizedString("Cli.UnknownCommand", "unknown command %@",
                                                     {invocation.words.front()}));
    }
    const auto first = invocation.words.begin() + static_cast<std::ptrdiff_t>(used);
    const Arguments arguments({first, invocation.words.end()}, invocation.options);
    if (!fits(*command, arguments)) {
        return usageError(err, FormatLocalizedString("Cli.CommandUsage", "usage: orvctl %@ %@",
                                                     {command->name, command->parameters}));
    }
    if (command->usesBus && openBus) openBus();
    Console console{out, err, invocation.json};
    return command->run(arguments, console);
}

}  // namespace

std::vector<std::string> Arguments::values(std::string_view option) const {
    std::vector<std::string> values;
    for (const Option& given : options_) {
        if (given.name == option) values.push_back(given.value);
    }
    return values;
}

std::optional<std::string> Arguments::value(std::string_view option) const {
    const auto all = values(option);
    return all.empty() ? std::nullopt : std::optional(all.back());
}

ExitCode RunCommandLine(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
                        const std::function<void()>& openBus) {
    Invocation invocation;
    if (const auto error = ParseInvocation(words, invocation)) return usageError(err, *error);
    if (invocation.version) {
        fmt::print(out, "orvctl {}\n", product::version);
        return ExitCode::Done;
    }
    if (invocation.help || invocation.words.empty()) {
        printHelp(invocation.help ? out : err);
        return invocation.help ? ExitCode::Done : ExitCode::Usage;
    }
    if (invocation.account && !IsAccountId(*invocation.account)) {
        return usageError(err, FormatLocalizedString("Cli.BadAccount", "%@ is no account's id",
                                                     {*invocation.account}));
    }
    if (invocation.account) {
        AgentID = IsDefaultAccountId(*invocation.account) ? "1" : *invocation.account;
    }
    return runCommand(invocation, out, err, openBus);
}

}  // namespace orv::cli

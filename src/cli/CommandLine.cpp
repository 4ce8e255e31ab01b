#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <optional>
#include <ostream>

#include "cli/Command.h"
#include "cli/Commands.h"
#include "config/ConfigurationPath.h"
#include "foundation/system/LocalizedString.h"

namespace orv::cli {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

constexpr std::array<Command, 5> commands = {{
    {"config path",
     "[FILE]",
     {"Cli.Summary.ConfigPath", "print the path of the configuration folder or of a file in it"},
     0,
     1,
     ShowConfigPath},
    {"config show",
     "FILE",
     {"Cli.Summary.ConfigShow", "show a property file with the types of its values"},
     1,
     1,
     ShowConfigFile},
    {"hardware-id",
     "",
     {"Cli.Summary.HardwareId", "print the identity of this computer"},
     0,
     0,
     ShowHardwareId},
    {"keychain check",
     "",
     {"Cli.Summary.KeychainCheck", "tell whether passwords can be kept, and what to do if not"},
     0,
     0,
     CheckKeychain},
    {"path classify",
     "PATH",
     {"Cli.Summary.PathClassify", "tell what kind of place a path is"},
     1,
     1,
     ClassifyPath},
}};

constexpr std::string_view version = "7.2.33";

struct Invocation {
    std::optional<std::string> account;
    bool json = false;
    bool help = false;
    bool version = false;
    std::vector<std::string> words;
};

void printHelp(std::ostream& out) {
    fmt::print(out, "{}\n\n{}\n",
               GetLocalizedString("Cli.Usage",
                                  "Usage: orvctl [--account ID] "
                                  "[--json] COMMAND ..."),
               GetLocalizedString("Cli.Commands", "Commands:"));
    for (const Command& command : commands) {
        const std::string line = fmt::format("{} {}", command.name, command.parameters);
        fmt::print(out, "  {:<22} {}\n", line,
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

/// Options may stand anywhere before "--"; an error message when one is wrong.
std::optional<std::string> parse(const std::vector<std::string>& words, Invocation& invocation) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word == "--") {
            const auto rest = words.begin() + static_cast<std::ptrdiff_t>(i) + 1;
            invocation.words.insert(invocation.words.end(), rest, words.end());
            break;
        }
        if (word == "--json") {
            invocation.json = true;
        } else if (word == "--help" || word == "-h") {
            invocation.help = true;
        } else if (word == "--version") {
            invocation.version = true;
        } else if (word == "--account") {
            if (++i == words.size()) {
                return GetLocalizedString("Cli.AccountMissing", "--account needs an account's id");
            }
            invocation.account = words[i];
        } else if (word.starts_with("-") && word.size() > 1) {
            return FormatLocalizedString("Cli.UnknownOption", "unknown option %@", {word});
        } else {
            invocation.words.push_back(word);
        }
    }
    return std::nullopt;
}

std::vector<std::string> split(std::string_view name) {
    std::vector<std::string> parts;
    while (!name.empty()) {
        const auto blank = std::min(name.find(' '), name.size());
        parts.emplace_back(name.substr(0, blank));
        name.remove_prefix(std::min(blank + 1, name.size()));
    }
    return parts;
}

const Command* findCommand(const std::vector<std::string>& words, std::size_t& used) {
    for (const Command& command : commands) {
        const auto name = split(command.name);
        if (words.size() < name.size() || !std::equal(name.begin(), name.end(), words.begin())) {
            continue;
        }
        used = name.size();
        return &command;
    }
    return nullptr;
}

/// An id becomes the name of a folder.
bool isAccountId(const std::string& id) {
    return !id.empty() && id.size() <= 64 && std::all_of(id.begin(), id.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
               c == '_' || c == '-';
    });
}

}  // namespace

std::span<const Command> AllCommands() {
    return commands;
}

ExitCode RunCommandLine(const std::vector<std::string>& words, std::ostream& out,
                        std::ostream& err) {
    Invocation invocation;
    if (const auto error = parse(words, invocation)) return usageError(err, *error);
    if (invocation.version) {
        fmt::print(out, "orvctl {}\n", version);
        return ExitCode::Done;
    }
    if (invocation.help || invocation.words.empty()) {
        printHelp(invocation.help ? out : err);
        return invocation.help ? ExitCode::Done : ExitCode::Usage;
    }
    if (invocation.account && !isAccountId(*invocation.account)) {
        return usageError(err, FormatLocalizedString("Cli.BadAccount", "%@ is no account's id",
                                                     {*invocation.account}));
    }
    if (invocation.account) AgentID = *invocation.account;

    std::size_t used = 0;
    const Command* command = findCommand(invocation.words, used);
    if (command == nullptr) {
        return usageError(err, FormatLocalizedString("Cli.UnknownCommand", "unknown command %@",
                                                     {invocation.words.front()}));
    }
    const Arguments arguments = Arguments(invocation.words).subspan(used);
    if (arguments.size() < command->minimumArguments ||
        arguments.size() > command->maximumArguments) {
        return usageError(err, FormatLocalizedString("Cli.CommandUsage", "usage: orvctl %@ %@",
                                                     {command->name, command->parameters}));
    }
    Console console{out, err, invocation.json};
    return command->run(arguments, console);
}

}  // namespace orv::cli

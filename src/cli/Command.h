#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/system/LocalizedString.h"

namespace orv::cli {

enum class ExitCode {
    Done = 0,
    /// Refused, or tried and failed.
    Failed = 1,
    Usage = 2,
    /// No agent answers on the session bus.
    NoAgent = 3,
};

using Arguments = std::span<const std::string>;

/// Where a command writes: results to `out`, everything else to `err`.
struct Console {
    std::ostream& out;
    std::ostream& err;
    /// The result is one JSON value and nothing else.
    bool json = false;
};

/// One command: the words that name it, what follows them and what it does.
struct Command {
    std::string_view name;
    std::string_view parameters;
    quelm::LocalizedText summary;
    std::size_t minimumArguments;
    std::size_t maximumArguments;
    ExitCode (*run)(Arguments arguments, Console& console);
};

/// All commands, in the order in which the help shows them.
[[nodiscard]] std::span<const Command> AllCommands();

/// Runs a command line without its program name: "[--account ID] [--json] COMMAND ...".
[[nodiscard]] ExitCode RunCommandLine(const std::vector<std::string>& words, std::ostream& out,
                                      std::ostream& err);

}  // namespace orv::cli

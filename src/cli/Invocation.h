#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/Command.h"

namespace orv::cli {

/// A command line taken apart; options may stand anywhere before "--".
struct Invocation {
    std::optional<std::string> account;
    bool json = false;
    bool help = false;
    bool version = false;
    /// The options that commands define, "--name VALUE" or "--name=VALUE".
    std::vector<Arguments::Option> options;
    std::vector<std::string> words;
};

/// None when `invocation` is filled, else what is wrong.
[[nodiscard]] std::optional<std::string> ParseInvocation(const std::vector<std::string>& words,
                                                         Invocation& invocation);

/// The single words of a text with blanks between them.
[[nodiscard]] std::vector<std::string> SplitWords(std::string_view text);

}  // namespace orv::cli

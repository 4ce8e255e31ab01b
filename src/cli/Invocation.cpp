#include "cli/Invocation.h"

#include <algorithm>
#include <array>

namespace orv::cli {

namespace {

using quelm::FormatLocalizedString;

struct Flag {
    std::string_view name;
    bool Invocation::*value;
};

constexpr std::array flags = {Flag{"--json", &Invocation::json}, Flag{"--help", &Invocation::help},
                              Flag{"-h", &Invocation::help},
                              Flag{"--version", &Invocation::version}};

/// "-" alone and a negative number are words.
bool isOption(const std::string& word) {
    return word.size() > 1 && word[0] == '-' && !(word[1] >= '0' && word[1] <= '9');
}

/// Whether some command has the option in that list of its own.
bool isIn(std::string_view Command::*list, const std::string& option) {
    return std::ranges::any_of(AllCommands(), [&](const Command& command) {
        return std::ranges::count(SplitWords(command.*list), option) > 0;
    });
}

bool takesValue(const std::string& option) {
    return option == "--account" || isIn(&Command::options, option);
}

bool setFlag(Invocation& invocation, const std::string& word) {
    const auto flag = std::find_if(flags.begin(), flags.end(),
                                   [&word](const Flag& known) { return known.name == word; });
    if (flag == flags.end()) return false;
    invocation.*flag->value = true;
    return true;
}

void setOption(Invocation& invocation, const std::string& name, const std::string& value) {
    if (name == "--account") {
        invocation.account = value;
    } else {
        invocation.options.push_back({name, value});
    }
}

}  // namespace

std::vector<std::string> SplitWords(std::string_view text) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const auto blank = std::min(text.find(' '), text.size());
        parts.emplace_back(text.substr(0, blank));
        text.remove_prefix(std::min(blank + 1, text.size()));
    }
    return parts;
}

std::optional<std::string> ParseInvocation(const std::vector<std::string>& words,
                                           Invocation& invocation) {
    for (auto word = words.begin(); word != words.end(); ++word) {
        if (*word == "--") {
            invocation.words.insert(invocation.words.end(), word + 1, words.end());
            break;
        }
        if (!isOption(*word)) {
            invocation.words.push_back(*word);
            continue;
        }
        if (setFlag(invocation, *word)) continue;
        if (isIn(&Command::flags, *word)) {
            invocation.options.push_back({*word, ""});
            continue;
        }
        const auto equals = word->find('=');
        const std::string name = word->substr(0, equals);
        if (!takesValue(name)) {
            return FormatLocalizedString("Cli.UnknownOption", "unknown option %@", {name});
        }
        if (equals != word->npos) {
            setOption(invocation, name, word->substr(equals + 1));
        } else if (word + 1 != words.end()) {
            setOption(invocation, name, *++word);
        } else {
            return FormatLocalizedString("Cli.ValueMissing", "%@ needs a value", {name});
        }
    }
    return std::nullopt;
}

}  // namespace orv::cli

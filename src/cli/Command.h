#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
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

/// What follows a command's name on its line.
class Arguments {
 public:
    struct Option {
        std::string name;
        std::string value;
    };

    Arguments() = default;
    Arguments(std::vector<std::string> words, std::vector<Option> options)
        : words_(std::move(words)), options_(std::move(options)) {}

    [[nodiscard]] const std::vector<std::string>& words() const { return words_; }
    [[nodiscard]] bool empty() const { return words_.empty(); }
    [[nodiscard]] std::size_t size() const { return words_.size(); }
    [[nodiscard]] const std::string& operator[](std::size_t index) const { return words_[index]; }

    [[nodiscard]] const std::vector<Option>& options() const { return options_; }
    /// The values given for the option ("--name"), in order.
    [[nodiscard]] std::vector<std::string> values(std::string_view option) const;
    [[nodiscard]] bool has(std::string_view option) const { return value(option).has_value(); }
    /// The last of them.
    [[nodiscard]] std::optional<std::string> value(std::string_view option) const;

 private:
    std::vector<std::string> words_;
    std::vector<Option> options_;
};

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
    std::string_view parameters = {};
    quelm::LocalizedText summary;
    std::size_t minimumArguments = 0;
    std::size_t maximumArguments = 0;
    ExitCode (*run)(const Arguments& arguments, Console& console);
    /// Its own options, each with a value, "--name --count".
    std::string_view options = {};
    /// Its own options without a value.
    std::string_view flags = {};
    /// Whether it talks to panel and agent; for the others no bus is opened, or missed.
    bool usesBus = false;
};

/// All commands, in the order in which the help shows them.
[[nodiscard]] std::span<const Command> AllCommands();

/// Runs a command line without its program name: "[--account ID] [--json] COMMAND ...".
/// `openBus` is called before a command that uses it.
[[nodiscard]] ExitCode RunCommandLine(const std::vector<std::string>& words, std::ostream& out,
                                      std::ostream& err, const std::function<void()>& openBus = {});

}  // namespace orv::cli

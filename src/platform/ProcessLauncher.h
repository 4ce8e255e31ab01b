#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace platform {

/// How a process ended.
struct ProcessEnd {
    int exitStatus = 0;  // 0 to 255, as given to exit(3); 0 when a signal ended it
    int signal = 0;      // the number of that signal, else 0

    bool operator==(const ProcessEnd&) const = default;
};

/// What is run, and who hears of it.
struct ProcessStart {
    std::string program;                 // a path, or a name that is looked for in PATH
    std::vector<std::string> arguments;  // without the program's own name
    /// Besides the caller's own environment, and instead of what has the same name there.
    std::vector<std::pair<std::string, std::string>> environment;
    /// Given to standard input, then its end. None: /dev/null.
    std::optional<std::string> input;
    /// Lines of standard output and of standard error without their ends; a line longer than
    /// `maximumLine` bytes comes cut to it. None: /dev/null.
    std::function<void(std::string_view line)> onOutput;
    std::function<void(std::string_view line)> onError;
    /// Once, after the last line.
    std::function<void(ProcessEnd end)> onEnd;

    static constexpr std::size_t maximumLine = std::size_t{1} << 20;
};

/// A process that was started here. Destroying the handle forgets it: nobody is called any more,
/// the process goes on, and it is still reaped. May be destroyed from within its own calls.
class ChildProcess {
 public:
    virtual ~ChildProcess() = default;

    [[nodiscard]] virtual pid_t pid() const = 0;
    /// False when it has ended; the number is never that of another process.
    virtual bool sendSignal(int number) = 0;
};

/// Starts programs in process groups of their own, with no descriptor but the three standard ones
/// and no signal blocked or ignored. Main thread; calls arrive there too.
class ProcessLauncher {
 public:
    virtual ~ProcessLauncher() = default;

    /// Null when it could not be started, and `error` is the number (errno) for which.
    [[nodiscard]] virtual std::unique_ptr<ChildProcess> start(ProcessStart start, int& error) = 0;
};

}  // namespace platform

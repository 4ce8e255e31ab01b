#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace test_support {

/// A program that runs beside the test and dies with it. One thread, which lives as long as the
/// child should.
class ChildProcess {
 public:
    struct Setup {
        /// Path and arguments.
        std::vector<std::string> words;
        /// Added to the test's own environment.
        std::vector<std::pair<std::string, std::string>> environment = {};
        /// What it reads from standard input before the end of file.
        std::string input = {};
        /// The file that takes what it prints, errors too unless they have one of their own.
        std::string outputFile = "/dev/null";
        std::string errorFile = {};
    };

    ChildProcess() = default;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess() { stop(); }

    /// False when it could not be started; one that runs is stopped first.
    bool start(const Setup& setup);
    /// Kills and reaps; nothing when none runs.
    void stop();
    void signal(int number) const;
    /// Waits for its end: the exit status, or -1.
    int wait();
    /// The same if it has ended; none while it runs.
    std::optional<int> ended();

 private:
    pid_t pid_ = -1;
};

/// Starts, waits, answers the exit status.
int RunProgram(const ChildProcess::Setup& setup);

/// Asks every few milliseconds until the answer is true; false when that takes too long.
[[nodiscard]] bool WaitUntil(const std::function<bool()>& holds,
                             std::chrono::milliseconds limit = std::chrono::seconds(20));

}  // namespace test_support

#include "platform/linux/PolkitAuthorization.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "platform/linux/BoundedFile.h"

namespace platform {

namespace {

constexpr std::size_t longestActionId = 255;

/// As polkit itself checks them.
bool isActionId(std::string_view text) {
    return !text.empty() && text.size() <= longestActionId && text.front() != '-' &&
           std::ranges::all_of(text, [](char c) {
               return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                      c == '.' || c == '-';
           });
}

/// "PID,STARTTIME,UID", by which polkit sees when another process has taken over the id.
std::optional<std::string> thisProcess() {
    constexpr int startTime = 22;  // field of proc_pid_stat(5), whose second may hold blanks
    const auto status = ReadFileStart("/proc/self/stat", 4096);
    if (!status) return std::nullopt;
    std::string_view rest = std::string_view(*status).substr(status->rfind(')') + 1);
    for (int field = 2; field < startTime; ++field) {
        const auto blank = rest.find(' ');
        if (blank == std::string_view::npos) return std::nullopt;
        rest.remove_prefix(blank + 1);
    }
    return std::to_string(::getpid()) + "," + std::string(rest.substr(0, rest.find(' '))) + "," +
           std::to_string(::getuid());
}

class SilentOutput {
 public:
    SilentOutput() {
        ::posix_spawn_file_actions_init(&actions_);
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
            ::posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_WRONLY, 0);
        }
    }
    SilentOutput(const SilentOutput&) = delete;
    SilentOutput& operator=(const SilentOutput&) = delete;
    ~SilentOutput() { ::posix_spawn_file_actions_destroy(&actions_); }
    [[nodiscard]] const posix_spawn_file_actions_t* actions() const { return &actions_; }

 private:
    posix_spawn_file_actions_t actions_ = {};
};

int waitFor(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return errno;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : ECANCELED;
}

}  // namespace

PolkitAuthorization::PolkitAuthorization(Reporter reporter, std::string program)
    : reporter_(std::move(reporter)), program_(std::move(program)) {}

int PolkitAuthorization::obtainRight(const std::string& right, const std::string&) {
    if (!isActionId(right)) return EINVAL;
    auto process = thisProcess();
    if (!process) return ESRCH;
    std::string action = right;
    std::array<std::string, 3> options = {"--action-id", "--process", "--allow-user-interaction"};
    const std::array<char*, 7> words = {
        program_.data(), options[0].data(), action.data(), options[1].data(),
        process->data(), options[2].data(), nullptr};
    const SilentOutput silent;
    pid_t child = -1;
    const int error =
        ::posix_spawn(&child, program_.c_str(), silent.actions(), nullptr, words.data(), environ);
    if (error == 0) return waitFor(child);
    reporter_.report("The right " + right + " cannot be asked for: " + program_ + ": " +
                     std::strerror(error) + ". Install the package polkitd.");
    return error;
}

}  // namespace platform

#include "platform/linux/DetachedProgram.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace platform {

namespace {

class NullStreams {
 public:
    NullStreams() {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDWR, 0);
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
            ::posix_spawn_file_actions_adddup2(&actions_, STDIN_FILENO, stream);
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    }
    NullStreams(const NullStreams&) = delete;
    NullStreams& operator=(const NullStreams&) = delete;
    ~NullStreams() { ::posix_spawn_file_actions_destroy(&actions_); }
    [[nodiscard]] const posix_spawn_file_actions_t* actions() const { return &actions_; }

 private:
    posix_spawn_file_actions_t actions_ = {};
};

/// A session of its own, and no signal blocked or ignored because it is here.
class OwnSession {
 public:
    OwnSession() {
        sigset_t none;
        sigset_t all;
        ::sigemptyset(&none);
        ::sigfillset(&all);
        ::posix_spawnattr_init(&attributes_);
        ::posix_spawnattr_setsigmask(&attributes_, &none);
        ::posix_spawnattr_setsigdefault(&attributes_, &all);
        ::posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    OwnSession(const OwnSession&) = delete;
    OwnSession& operator=(const OwnSession&) = delete;
    ~OwnSession() { ::posix_spawnattr_destroy(&attributes_); }
    [[nodiscard]] const posix_spawnattr_t* attributes() const { return &attributes_; }

 private:
    posix_spawnattr_t attributes_ = {};
};

void reapAtItsEnd(pid_t child) {
    try {
        std::thread([child] {
            while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
            }
        }).detach();
    } catch (const std::system_error&) {  // then it is reaped by the end of this process
    }
}

}  // namespace

int StartDetached(const std::vector<std::string>& words) {
    if (words.empty() || words.front().empty()) return EINVAL;
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (const std::string& word : words)
        pointers.push_back(const_cast<char*>(word.c_str()));
    pointers.push_back(nullptr);
    const NullStreams streams;
    const OwnSession session;
    pid_t child = -1;
    const int error = ::posix_spawnp(&child, pointers.front(), streams.actions(),
                                     session.attributes(), pointers.data(), environ);
    if (error == 0) reapAtItsEnd(child);
    return error;
}

}  // namespace platform

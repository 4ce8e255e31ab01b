#include "support/ChildProcess.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/FileDescriptor.h"

namespace test_support {

namespace {

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (auto& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> environmentWith(const ChildProcess::Setup& setup) {
    std::vector<std::string> variables;
    for (const auto& [name, value] : setup.environment) {
        variables.push_back(std::string(name).append("=").append(value));
    }
    for (char** variable = environ; *variable != nullptr; ++variable) {
        variables.emplace_back(*variable);  // the first of a name counts
    }
    return variables;
}

struct Streams {
    int input;
    int output;
    int error;
};

/// In the child, where other threads may have held any lock: system calls only.
[[noreturn]] void become(char* const* words, char* const* environment, const Streams& streams,
                         pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(127);
    ::dup2(streams.input, STDIN_FILENO);
    ::dup2(streams.output, STDOUT_FILENO);
    ::dup2(streams.error, STDERR_FILENO);
    ::execve(words[0], words, environment);
    ::_exit(127);
}

int openToWrite(const std::string& path) {
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
}

}  // namespace

bool ChildProcess::start(const Setup& setup) {
    stop();
    std::vector<std::string> words = setup.words;
    std::vector<std::string> variables = environmentWith(setup);
    const auto wordPointers = pointersTo(words);
    const auto variablePointers = pointersTo(variables);
    std::array<int, 2> ends = {-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
    const platform::FileDescriptor readEnd(ends[0]);
    const platform::FileDescriptor writeEnd(ends[1]);
    const platform::FileDescriptor output(openToWrite(setup.outputFile));
    const platform::FileDescriptor error(setup.errorFile.empty() ? -1
                                                                 : openToWrite(setup.errorFile));
    const pid_t parent = ::getpid();
    pid_ = ::fork();
    if (pid_ == 0) {
        become(wordPointers.data(), variablePointers.data(),
               {readEnd.get(), output.get(), error ? error.get() : output.get()}, parent);
    }
    // short enough for the pipe to take it at once
    const auto written = ::write(writeEnd.get(), setup.input.data(), setup.input.size());
    return pid_ > 0 && written == static_cast<ssize_t>(setup.input.size());
}

void ChildProcess::signal(int number) const {
    if (pid_ > 0) ::kill(pid_, number);
}

void ChildProcess::stop() {
    signal(SIGKILL);
    wait();
}

int ChildProcess::wait() {
    int status = -1;
    if (pid_ <= 0 || ::waitpid(std::exchange(pid_, -1), &status, 0) < 0) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::optional<int> ChildProcess::ended() {
    siginfo_t info = {};
    const auto id = static_cast<id_t>(pid_);
    if (::waitid(P_PID, id, &info, WEXITED | WNOHANG | WNOWAIT) == 0 && info.si_pid == 0) return {};
    return wait();
}

int RunProgram(const ChildProcess::Setup& setup) {
    ChildProcess child;
    return child.start(setup) ? child.wait() : -1;
}

bool WaitUntil(const std::function<bool()>& holds, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) return false;
        ::poll(nullptr, 0, 5);
    }
    return true;
}

}  // namespace test_support

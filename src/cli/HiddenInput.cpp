#include "cli/HiddenInput.h"

#include <array>
#include <csignal>
#include <fmt/ostream.h>
#include <ostream>
#include <termios.h>
#include <unistd.h>

namespace orv::cli {

namespace {

constexpr std::size_t longestLine = 1'024;

/// Those with which a person or the session ends the program.
constexpr auto endings = std::to_array<int>({SIGHUP, SIGINT, SIGQUIT, SIGTERM});

/// As the terminal was, for the signal handler.
termios settingsBefore = {};

/// The signal does what it always does, once this returns.
void restoreAndEnd(int number) {
    ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &settingsBefore);
    ::raise(number);
}

/// While it lives the terminal, if standard input is one, shows nothing that is typed; also when
/// the program is ended meanwhile it is left as it was. One at a time.
class EchoOff {
 public:
    EchoOff() : isTerminal_(::tcgetattr(STDIN_FILENO, &settingsBefore) == 0) {
        if (!isTerminal_) return;
        watchEndings();
        termios quiet = settingsBefore;
        quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        quiet.c_cc[VSUSP] = _POSIX_VDISABLE;  // a shell would get it without echo
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
    }
    EchoOff(const EchoOff&) = delete;
    EchoOff& operator=(const EchoOff&) = delete;
    ~EchoOff() {
        if (!isTerminal_) return;
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &settingsBefore);
        for (std::size_t i = 0; i < endings.size(); ++i)
            ::sigaction(endings[i], &before_[i], nullptr);
    }
    [[nodiscard]] bool isTerminal() const { return isTerminal_; }

 private:
    /// A signal that is ignored stays so.
    void watchEndings() {
        struct sigaction watched = {};
        watched.sa_handler = restoreAndEnd;
        watched.sa_flags = static_cast<int>(SA_RESETHAND);
        for (std::size_t i = 0; i < endings.size(); ++i) {
            ::sigaction(endings[i], nullptr, &before_[i]);
            if (before_[i].sa_handler != SIG_IGN) ::sigaction(endings[i], &watched, nullptr);
        }
    }

    std::array<struct sigaction, endings.size()> before_ = {};
    bool isTerminal_;
};

}  // namespace

/// Byte by byte, so that nothing behind the line is taken.
std::optional<std::string> ReadHiddenLine(Console& console, const std::string& question) {
    const EchoOff echo;
    fmt::print(console.err, "{} ", question);
    console.err.flush();
    std::string line;
    char byte = 0;
    ssize_t count = 0;
    while ((count = ::read(STDIN_FILENO, &byte, 1)) == 1 && byte != '\n') {
        if (line.size() == longestLine) return std::nullopt;
        line += byte;
    }
    if (echo.isTerminal()) fmt::print(console.err, "\n");
    return count == 1 || !line.empty() ? std::optional(line) : std::nullopt;
}

}  // namespace orv::cli

#include "cli/HiddenInput.h"

#include <fmt/ostream.h>
#include <ostream>
#include <termios.h>
#include <unistd.h>

namespace orv::cli {

namespace {

constexpr std::size_t longestLine = 1'024;

/// While it lives the terminal, if standard input is one, shows nothing that is typed.
class EchoOff {
 public:
    EchoOff() : isTerminal_(::tcgetattr(STDIN_FILENO, &before_) == 0) {
        if (!isTerminal_) return;
        termios quiet = before_;
        quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
    }
    EchoOff(const EchoOff&) = delete;
    EchoOff& operator=(const EchoOff&) = delete;
    ~EchoOff() {
        if (isTerminal_) ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_);
    }
    [[nodiscard]] bool isTerminal() const { return isTerminal_; }

 private:
    termios before_ = {};
    bool isTerminal_;
};

}  // namespace

/// Byte by byte, so that nothing behind the line is taken.
std::optional<std::string> ReadHiddenLine(Console& console, const std::string& question) {
    fmt::print(console.err, "{} ", question);
    console.err.flush();
    const EchoOff echo;
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

#include <csignal>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <utmp.h>

#include "config/PropertyFiles.h"
#include "platform/FileDescriptor.h"
#include "support/HttpsServer.h"

namespace {

using quelm::Dictionary;
using test_support::ContentOf;
using test_support::WaitUntil;
using testing::HasSubstr;
using testing::Not;

constexpr const char* question = "Enter your Corvanta Tidewell Backup password: ";

/// orvctl on a terminal, whose other end this is.
class Terminal {
 public:
    explicit Terminal(std::vector<std::string> words) {
        std::vector<char*> pointers;
        for (std::string& word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);
        int person = -1;
        int program = -1;
        if (::openpty(&person, &program, nullptr, nullptr, nullptr) != 0) return;
        person_.reset(person);
        program_.reset(program);
        process_ = ::fork();
        if (process_ != 0) return;
        ::close(person);
        ::login_tty(program);
        ::execv(pointers[0], pointers.data());
        ::_exit(127);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() {
        if (process_ > 0) ::kill(process_, SIGKILL);
        wait();
    }

    [[nodiscard]] bool echoes() const {
        termios settings = {};
        return ::tcgetattr(person_.get(), &settings) == 0 && (settings.c_lflag & ECHO) != 0;
    }
    void type(std::string_view text) const {
        EXPECT_EQ(::write(person_.get(), text.data(), text.size()), std::ssize(text));
    }
    /// Everything so far.
    const std::string& shown() {
        pollfd request{person_.get(), POLLIN, 0};
        char bytes[256];
        while (::poll(&request, 1, 0) == 1 && (request.revents & POLLIN) != 0) {
            const auto count = ::read(person_.get(), bytes, sizeof bytes);
            if (count <= 0) break;
            shown_.append(bytes, static_cast<std::size_t>(count));
        }
        return shown_;
    }
    /// As waitpid has it.
    int wait() {
        int status = -1;
        if (process_ > 0) ::waitpid(std::exchange(process_, -1), &status, 0);
        return status;
    }

 private:
    platform::FileDescriptor person_;
    platform::FileDescriptor program_;  // kept, so that the settings stay when the program ends
    pid_t process_ = -1;
    std::string shown_;
};

class PasswordCheck : public testing::Test {
 protected:
    void SetUp() override {
        if (!server_.start()) GTEST_SKIP() << "python3 or openssl is missing";
        folder_ = home_.makeFolder("Library/Preferences/com.corvanta.orv");
        ASSERT_TRUE(orv::StorePropertiesToFile(folder_ + "/user_info.plist",
                                               Dictionary{{"email", "anna@example.org"}}));
        useServer(server_.secure());
    }
    void useServer(const std::string& address) const {
        ASSERT_TRUE(orv::StorePropertiesToFile(folder_ + "/server_info.plist",
                                               Dictionary{{"api_server", address}}));
    }

    struct Outcome {
        int code;
        std::string out;
        std::string err;
    };
    [[nodiscard]] Outcome check(const std::string& input, std::vector<std::string> options) const {
        std::vector<std::string> words = {ORVCTL, "password", "check"};
        words.insert(words.end(), options.begin(), options.end());
        const int code = test_support::RunProgram({.words = words,
                                                   .environment = {},
                                                   .input = input,
                                                   .outputFile = files_ / "out",
                                                   .errorFile = files_ / "err"});
        return {code, ContentOf(files_ / "out"), ContentOf(files_ / "err")};
    }

    test_support::HttpsServer server_;
    test_support::TemporaryFolder home_;
    test_support::TemporaryFolder files_;
    const test_support::ScopedEnvironment homeFolder_{"HOME", home_.path()};
    const test_support::ScopedEnvironment noBus_{"DBUS_SESSION_BUS_ADDRESS",
                                                 "unix:path=" + home_ / "no-bus"};
    std::string folder_;
};

TEST_F(PasswordCheck, SaysWhatTheServiceSays) {
    struct Case {
        const char* input;
        int code;
        std::string message;
    };
    const std::vector<Case> cases = {
        {"right\nmore", 0, "The password is right."},
        {"right", 0, "The password is right."},
        {"wrong\n", 1, "Invalid credentials."},
        {"locked\n", 1,
         "Your account has been locked for several minutes because of too many failed login "
         "attempts."},
        {"hidden-7\n", 1, "Invalid response from server."},
    };
    for (const auto& [input, code, message] : cases) {
        SCOPED_TRACE(input);
        const Outcome plain = check(input, {});
        EXPECT_EQ(plain.code, code);
        EXPECT_EQ(plain.out, "");
        EXPECT_THAT(plain.err, testing::StartsWith(question));
        EXPECT_THAT(plain.err, testing::EndsWith("orvctl: " + message + "\n"));
        EXPECT_THAT(plain.err, Not(HasSubstr("hidden-7")));
        const Outcome exact = check(input, {"--json"});
        EXPECT_EQ(exact.code, code);
        EXPECT_EQ(exact.out,
                  fmt::format("{{\"accepted\":{},\"message\":\"{}\"}}\n", code == 0, message));
    }
    useServer("https://127.0.0.1:1");
    const Outcome unreachable = check("hidden-7\n", {"--json"});
    EXPECT_EQ(unreachable.code, 1);
    EXPECT_THAT(unreachable.out, HasSubstr("Connection error. Please check your connection"));
    EXPECT_THAT(unreachable.out + unreachable.err, Not(HasSubstr("hidden-7")));
    for (const std::string& input : {std::string(), std::string(1'025, 'x') + "\n"}) {
        const Outcome none = check(input, {"--json"});
        EXPECT_EQ(none.code, 1);
        EXPECT_EQ(none.out, "");
        EXPECT_THAT(none.err, HasSubstr("No password was entered."));
    }
}

TEST_F(PasswordCheck, ShowsNothingOfWhatIsTypedAndLeavesTheTerminalAsItWas) {
    struct Case {
        std::string_view typed;
        int status;
    };
    for (const auto& [typed, status] :
         {Case{"hidden-7\n", 1 << 8U}, Case{"hidden-7\x03", SIGINT}}) {
        Terminal terminal({ORVCTL, "password", "check"});
        ASSERT_TRUE(terminal.echoes());
        ASSERT_TRUE(
            WaitUntil([&] { return terminal.shown().find(question) != std::string::npos; }));
        EXPECT_FALSE(terminal.echoes()) << "from the question on";
        terminal.type(typed);
        EXPECT_EQ(terminal.wait(), status);
        EXPECT_TRUE(terminal.echoes());
        EXPECT_THAT(terminal.shown(), Not(HasSubstr("hidden")));
    }
}

}  // namespace

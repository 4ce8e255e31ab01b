#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/linux/CupsPrinters.h"
#include "support/ChildProcess.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace std::chrono_literals;
using platform::PrinterState;
using test_support::ChildProcess;
using test_support::WaitUntil;

/// The adapter against a real server with an address of its own.
class CupsPrinters : public testing::Test {
 protected:
    void SetUp() override {
        for (const char* program : {"/usr/sbin/cupsd", "/usr/sbin/lpadmin"}) {
            if (!std::filesystem::exists(program)) GTEST_SKIP() << program << " is not installed";
        }
        if (::geteuid() != 0) GTEST_SKIP() << "only root may start cupsd";
    }

    [[nodiscard]] bool startServer() {
        std::string files = "FileDevice Yes\nSystemGroup root\n";
        for (const char* role : {"ServerRoot", "RequestRoot", "CacheDir", "StateDir", "TempDir"}) {
            files += std::string(role) + " " + folder_.makeFolder(role) + "\n";
        }
        for (const char* log : {"AccessLog", "ErrorLog", "PageLog"}) {
            files += std::string(log) + " " + folder_ / log + "\n";
        }
        const std::string all = "Order allow,deny\nAllow all\n";
        const std::string rules = "Listen " + socket_ + "\nDefaultAuthType None\nBrowsing Off\n" +
                                  "WebInterface No\n<Location />\n" + all + "</Location>\n" +
                                  "<Policy default>\n<Limit All>\n" + all + "</Limit>\n</Policy>\n";
        const bool started = server_.start(
            {.words = {"/usr/sbin/cupsd", "-f", "-c", folder_.makeFile("rules", rules), "-s",
                       folder_.makeFile("files", files)}});
        return started && WaitUntil([this] { return lpadmin({"-x", "nothing"}) == 1; });
    }
    /// 1 also for what the server refuses.
    [[nodiscard]] int lpadmin(const std::vector<std::string>& options) const {
        std::vector<std::string> words = {"/usr/sbin/lpadmin", "-h", socket_};
        words.insert(words.end(), options.begin(), options.end());
        const std::string output = folder_ / "lpadmin";
        const int status = test_support::RunProgram({.words = words, .outputFile = output});
        const bool answered =
            test_support::ContentOf(output).find("does not exist") != std::string::npos;
        return status != 0 && !answered ? -1 : status;
    }
    [[nodiscard]] int addQueue(const std::string& id,
                               const std::vector<std::string>& options) const {
        std::vector<std::string> words = {"-p", id, "-v", "file:///dev/null", "-m", "raw"};
        words.insert(words.end(), options.begin(), options.end());
        return lpadmin(words);
    }
    [[nodiscard]] std::string described() {
        const auto printers = printers_.list();
        if (!printers) return "no answer";
        std::string text;
        for (const auto& [id, name, isDefault] : *printers) {
            text += id + "=" + name + (isDefault ? "*;" : ";");
        }
        return text;
    }

    // what a person chooses for a session
    test_support::ScopedEnvironment destination_{"LPDEST", std::nullopt};
    test_support::ScopedEnvironment printer_{"PRINTER", std::nullopt};
    test_support::TemporaryFolder folder_;
    std::string socket_ = folder_ / "socket";
    ChildProcess server_;
    std::vector<std::string> reports_;
    platform::CupsPrinters printers_{[this](const std::string& line) { reports_.push_back(line); },
                                     socket_, 200ms};
};

TEST_F(CupsPrinters, AreTheQueuesOfTheServerWithTheirStates) {
    ASSERT_TRUE(startServer());
    EXPECT_EQ(described(), "") << "a server without printers";
    ASSERT_EQ(addQueue("first", {"-E", "-D", "Erster <\u00e4\u00f6>"}), 0);
    ASSERT_EQ(addQueue("second", {"-E"}), 0);
    ASSERT_EQ(addQueue("third", {"-D", "Third"}), 0);
    EXPECT_EQ(described(), "first=Erster <\u00e4\u00f6>;second=second;third=Third;");
    ASSERT_EQ(lpadmin({"-d", "second"}), 0);
    EXPECT_EQ(described(), "first=Erster <\u00e4\u00f6>;second=second*;third=Third;");
    EXPECT_EQ(printers_.state("first"), PrinterState::Ready);
    EXPECT_EQ(printers_.state("third"), PrinterState::Stopped) << "it was never enabled";
    ASSERT_EQ(lpadmin({"-x", "first"}), 0);
    EXPECT_EQ(printers_.state("first"), PrinterState::Unknown);
    EXPECT_EQ(described(), "second=second*;third=Third;");
    EXPECT_EQ(reports_, std::vector<std::string>{});
}

TEST_F(CupsPrinters, AreNoneWithoutAServerWhichIsSaidOnce) {
    EXPECT_EQ(described(), "no answer");
    EXPECT_EQ(printers_.state("first"), PrinterState::Unknown);
    ASSERT_EQ(reports_.size(), 1U);
    EXPECT_NE(reports_[0].find("Install and start the package cups"), std::string::npos)
        << reports_[0];
}

TEST_F(CupsPrinters, AreGivenUpOnAServerThatHangsAndComeBackWithIt) {
    ASSERT_TRUE(startServer());
    ASSERT_EQ(addQueue("only", {"-E"}), 0);
    server_.signal(SIGSTOP);
    for (int call = 0; call < 2; ++call) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(described(), "no answer");
        EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    }
    server_.signal(SIGCONT);
    EXPECT_TRUE(WaitUntil([this] { return described() == "only=only;"; }));
    ASSERT_EQ(reports_.size(), 1U);
    EXPECT_NE(reports_[0].find("Restart"), std::string::npos) << reports_[0];
}

}  // namespace

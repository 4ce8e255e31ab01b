#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

#include "platform/linux/secrets/SecretServiceKeychain.h"
#include "support/PrivateBus.h"

namespace {

using namespace std::chrono_literals;
using platform::GenericPasswordItem;
using platform::InternetPasswordItem;
using platform::KeychainItem;
using test_support::ChildProcess;
using test_support::ContentOf;
using test_support::WaitUntil;
using Status = platform::Keychain::Status;
using Interaction = platform::Keychain::Interaction;

constexpr auto forbidden = Interaction::Forbidden;
/// Far above what an answer takes, far below the fixture's limit and GLib's own of 25 s.
constexpr auto quick = 3s;

const KeychainItem account = GenericPasswordItem{"Tidewell äé", "rc id/1"};
const std::string binary("\0\xff\xfe pass\0word", 14);

KeychainItem server(std::optional<std::string> path, std::uint16_t port = 443,
                    std::uint32_t protocol = 0x68747073) {
    return InternetPasswordItem{"host.example", "user", std::move(path), port, protocol};
}

/// The adapter against a real keyring on a bus of its own. secret-tool, which is not ours, tells
/// what is in the keyring.
class SecretServiceKeychain : public testing::Test {
 protected:
    void SetUp() override {
        for (const char* program : {"/usr/bin/gnome-keyring-daemon", "/usr/bin/secret-tool"}) {
            if (!std::filesystem::exists(program)) GTEST_SKIP() << program << " is not installed";
        }
        ASSERT_TRUE(bus_.runs());
    }

    /// Starts it with its login collection unlocked.
    [[nodiscard]] bool startKeyring() { return startKeyring({"--unlock"}, Status::Done); }
    [[nodiscard]] bool startKeyring(const std::vector<std::string>& options, Status state) {
        std::vector<std::string> words = {"/usr/bin/gnome-keyring-daemon", "--foreground",
                                          "--components=secrets"};
        words.insert(words.end(), options.begin(), options.end());
        const bool started =
            keyring_.start({.words = words, .environment = environment_, .input = "pw"});
        platform::SecretServiceKeychain probe(nullptr, bus_.address());
        return started && WaitUntil([&] { return probe.state() == state; });
    }
    [[nodiscard]] bool lockKeyring() const {
        const int status = test_support::RunProgram(
            {.words = {"/usr/bin/dbus-send", "--bus=" + bus_.address(), "--print-reply",
                       "--dest=org.freedesktop.secrets", "/org/freedesktop/secrets",
                       "org.freedesktop.Secret.Service.Lock",
                       "array:objpath:/org/freedesktop/secrets/collection/login"},
             .environment = {}});
        return status == 0;
    }
    [[nodiscard]] int secretTool(std::vector<std::string> words) const {
        words.insert(words.begin(), "/usr/bin/secret-tool");
        return test_support::RunProgram(
            {.words = words, .environment = environment_, .outputFile = bus_.folder() / "out"});
    }
    /// What secret-tool printed last.
    [[nodiscard]] std::string output() const { return ContentOf(bus_.folder() / "out"); }
    /// How many items secret-tool finds.
    [[nodiscard]] std::size_t count(const std::vector<std::string>& attributes) const {
        std::vector<std::string> words = {"search", "--all"};
        words.insert(words.end(), attributes.begin(), attributes.end());
        EXPECT_EQ(secretTool(words), 0);
        std::size_t items = 0;
        const std::string found = output();
        for (auto at = found.find("label = "); at != std::string::npos;
             at = found.find("label = ", at + 1)) {
            ++items;
        }
        return items;
    }
    [[nodiscard]] Status create(const KeychainItem& item, const std::string& secret) {
        return keychain_.create(item, "a label", {}, secret, forbidden);
    }
    [[nodiscard]] std::string readOf(const KeychainItem& item) {
        std::string secret = "unchanged";
        return keychain_.read(item, secret, forbidden) == Status::Done ? secret : "none";
    }
    /// Every call with interaction forbidden comes to `status`, and soon.
    void expectAll(Status status) { expectAll(status, keychain_); }
    static void expectAll(Status status, platform::Keychain& keychain) {
        std::string secret = "unchanged";
        const std::vector<std::function<Status()>> calls = {
            [&] { return keychain.state(); },
            [&] { return keychain.read(account, secret, forbidden); },
            [&] { return keychain.replace(account, "x", forbidden); },
            [&] { return keychain.create(account, "label", {}, "x", forbidden); },
            [&] { return keychain.create(server({}), "label", {}, "x", forbidden); },
            [&] { return keychain.remove(account, forbidden); }};
        for (std::size_t i = 0; i < calls.size(); ++i) {
            const auto start = std::chrono::steady_clock::now();
            EXPECT_EQ(calls[i](), status) << "call " << i;
            EXPECT_LT(std::chrono::steady_clock::now() - start, quick) << "call " << i;
        }
        EXPECT_EQ(secret, "unchanged");
    }

    test_support::PrivateBus bus_;
    std::vector<std::pair<std::string, std::string>> environment_ = {
        {"DBUS_SESSION_BUS_ADDRESS", bus_.address()},
        {"HOME", bus_.folder().makeFolder("home")},
        {"XDG_RUNTIME_DIR", bus_.folder().makeFolder("run")},
        {"XDG_DATA_HOME", bus_.folder().makeFolder("data")}};
    ChildProcess keyring_;
    std::mutex mutex_;
    std::vector<std::string> reports_;
    platform::SecretServiceKeychain keychain_{[this](const std::string& line) {
                                                  const std::lock_guard lock(mutex_);
                                                  reports_.push_back(line);
                                              },
                                              bus_.address(), 20s};
};

TEST_F(SecretServiceKeychain, KeepsOneItemForEachKeyThatOtherToolsCanShow) {
    ASSERT_TRUE(startKeyring());
    EXPECT_EQ(keychain_.replace(account, "x", forbidden), Status::NotFound);
    EXPECT_EQ(keychain_.remove(account, forbidden), Status::NotFound);
    EXPECT_EQ(readOf(account), "none");

    ASSERT_EQ(create(account, "first"), Status::Done);
    ASSERT_EQ(create(GenericPasswordItem{"Tidewell äé", "other"}, "other"), Status::Done);
    EXPECT_EQ(keychain_.replace(account, binary, forbidden), Status::Done);
    EXPECT_EQ(readOf(account), binary);
    ASSERT_EQ(create(account, "third"), Status::Done) << "replaces";
    EXPECT_EQ(readOf(account), "third");
    const std::vector<std::string> words = {"xdg:schema", "com.corvanta.orv.GenericPassword",
                                            "service",    "Tidewell äé",
                                            "account",    "rc id/1"};
    EXPECT_EQ(count(words), 1U);
    EXPECT_NE(output().find("label = a label\nsecret = third\n"), std::string::npos) << output();

    std::string secret;
    EXPECT_EQ(keychain_.replace(account, "4", Interaction::Allowed), Status::Done);
    EXPECT_EQ(keychain_.read(account, secret, Interaction::Allowed), Status::Done);
    EXPECT_EQ(secret, "4");
    EXPECT_EQ(keychain_.remove(account, forbidden), Status::Done);
    EXPECT_EQ(count(words), 0U);
    EXPECT_EQ(readOf(GenericPasswordItem{"Tidewell äé", "other"}), "other");
    EXPECT_EQ(reports_, std::vector<std::string>{});
}

TEST_F(SecretServiceKeychain, TellsInternetItemsApartByEveryPartOfTheirKey) {
    ASSERT_TRUE(startKeyring());
    // one without a path after one with: the service takes the other for it
    const std::vector<KeychainItem> items = {server("/a"),   server(""),          server("/a", 0),
                                             server({}, 80), server({}, 443, 0),  server({}, 0, 0),
                                             server({}),     server("/a", 443, 0)};
    for (std::size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(keychain_.replace(items[i], "x", forbidden), Status::NotFound) << i;
        ASSERT_EQ(create(items[i], std::to_string(i)), Status::Done) << i;
    }
    for (std::size_t i = 0; i < items.size(); ++i)
        EXPECT_EQ(readOf(items[i]), std::to_string(i));
    EXPECT_EQ(count({"server", "host.example", "account", "user", "port", "443", "protocol", "htps",
                     "path", "/a", "authentication", "default", "xdg:schema",
                     "com.corvanta.orv.InternetPassword"}),
              1U);
    EXPECT_EQ(keychain_.remove(server({}), forbidden), Status::Done);
    EXPECT_EQ(readOf(server({})), "none");
    EXPECT_EQ(keychain_.remove(server({}), forbidden), Status::NotFound);
    EXPECT_EQ(count({"server", "host.example"}), items.size() - 1);
}

TEST_F(SecretServiceKeychain, RefusesWhatTheBusCannotCarry) {
    ASSERT_TRUE(startKeyring());
    for (const std::string& text :
         {std::string("a\0b", 3), std::string("\xff"), std::string(std::size_t{1} << 20, 'x')}) {
        EXPECT_EQ(create(GenericPasswordItem{text, "a"}, "x"), Status::Failed);
        EXPECT_EQ(readOf(GenericPasswordItem{"s", text}), "none");
    }
    EXPECT_EQ(create(account, std::string((std::size_t{1} << 20) + 1, 'x')), Status::Failed);
    EXPECT_EQ(create(account, ""), Status::Done);
    EXPECT_EQ(readOf(account), "") << "an empty password is a password";
}

TEST_F(SecretServiceKeychain, OpensNoPromptForALockedKeyringUnlessAllowed) {
    ASSERT_TRUE(startKeyring());
    ASSERT_EQ(create(account, "kept"), Status::Done);
    ASSERT_EQ(create(server("/a"), "kept"), Status::Done);
    ASSERT_TRUE(lockKeyring());
    // sees what the keyring is asked for
    const std::string log = bus_.folder() / "calls";
    ChildProcess monitor;
    ASSERT_TRUE(monitor.start(
        {.words = {"/usr/bin/dbus-monitor", "--address", bus_.address(),
                   "type='method_call',member='Prompt'", "type='method_call',member='OpenSession'"},
         .environment = {},
         .outputFile = log}));
    ASSERT_TRUE(WaitUntil([&] {
        return keychain_.state() == Status::Locked &&
               ContentOf(log).find("OpenSession") != std::string::npos;
    })) << "the monitor sees nothing";

    expectAll(Status::Locked);
    EXPECT_EQ(keychain_.remove(server("/a"), forbidden), Status::Locked);
    std::string secret;
    EXPECT_EQ(keychain_.read(server({}), secret, forbidden), Status::Locked)
        << "what is not seen may be behind the lock";

    // with no prompter on the bus the keyring dismisses the prompt at once
    EXPECT_EQ(keychain_.read(account, secret, Interaction::Allowed), Status::Locked);
    ASSERT_TRUE(
        WaitUntil([&log] { return ContentOf(log).find("member=Prompt") != std::string::npos; }));
    const std::string calls = ContentOf(log);
    EXPECT_EQ(calls.find("member=Prompt"), calls.rfind("member=Prompt")) << calls;

    ASSERT_TRUE(startKeyring({}, Status::Locked)) << "as after a log-in without a password";
    expectAll(Status::Locked);
    EXPECT_EQ(reports_, std::vector<std::string>{});
}

TEST_F(SecretServiceKeychain, SaysOnceThatNoServiceAnswersAndWhatToInstall) {
    expectAll(Status::Unavailable);
    std::string secret;
    EXPECT_EQ(keychain_.read(account, secret, Interaction::Allowed), Status::Unavailable);
    ASSERT_EQ(reports_.size(), 1U);
    EXPECT_NE(reports_[0].find("gnome-keyring"), std::string::npos) << reports_[0];
    bus_.stop();
    expectAll(Status::Unavailable);
    EXPECT_EQ(reports_.size(), 1U);
}

TEST_F(SecretServiceKeychain, ComesBackWithTheServiceAndWithTheBus) {
    ASSERT_TRUE(startKeyring());
    ASSERT_EQ(create(account, "kept"), Status::Done);
    keyring_.stop();
    expectAll(Status::Unavailable);
    ASSERT_TRUE(startKeyring());
    EXPECT_EQ(readOf(account), "kept");
    bus_.stop();
    expectAll(Status::Unavailable);
    keyring_.stop();
    ASSERT_TRUE(bus_.start());
    ASSERT_TRUE(startKeyring());
    EXPECT_EQ(readOf(account), "kept");
}

TEST_F(SecretServiceKeychain, GivesUpOnAServiceOrABusThatHangs) {
    ASSERT_TRUE(startKeyring());
    ASSERT_EQ(create(account, "kept"), Status::Done);
    std::vector<std::string> reports;
    platform::SecretServiceKeychain hasty(
        [&reports](const std::string& line) { reports.push_back(line); }, bus_.address(), 100ms);
    keyring_.signal(SIGSTOP);
    expectAll(Status::Unavailable, hasty);
    keyring_.signal(SIGCONT);
    bus_.signal(SIGSTOP);
    expectAll(Status::Unavailable, hasty);
    bus_.signal(SIGCONT);
    EXPECT_EQ(readOf(account), "kept");
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_NE(reports[0].find("in time"), std::string::npos) << reports[0];
}

std::ptrdiff_t openDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST_F(SecretServiceKeychain, ServesThreadsAtTheSameTimeAndLeavesNoConnectionBehind) {
    ASSERT_TRUE(startKeyring());
    const auto before = openDescriptors();
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this, i] {
            const KeychainItem own = GenericPasswordItem{"thread", std::to_string(i)};
            platform::SecretServiceKeychain keychain(nullptr, bus_.address(), 20s);
            std::string secret;
            for (int turn = 0; turn < 5; ++turn) {
                const std::string value = std::to_string(i * 100 + turn);
                EXPECT_EQ(keychain.create(own, "l", {}, value, forbidden), Status::Done);
                EXPECT_EQ(keychain.read(own, secret, forbidden), Status::Done);
                EXPECT_EQ(secret, value);
            }
        });
    }
    threads.clear();
    // GLib's own thread closes them
    EXPECT_TRUE(WaitUntil([before] { return openDescriptors() <= before; }));
    EXPECT_EQ(count({"service", "thread"}), 4U);
}

}  // namespace

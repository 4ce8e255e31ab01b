#include <QCoreApplication>
#include <array>
#include <gmock/gmock.h>
#include <mutex>

#include "pane/PaneFixture.h"
#include "pane/password/OnlinePasswordController.h"
#include "platform/linux/QtRunLoop.h"
#include "support/HttpsServer.h"

namespace {

using namespace orv;
using namespace std::chrono_literals;
using quelm::Dictionary;
using testing::HasSubstr;
using testing::Not;

const Dictionary asking = {{"ask_for_password", true}, {"email", "anna@example.org"}};

/// A person in front of the window, and a service behind it.
class TheOnlinePassword : public test_support::SyncFixture {
 protected:
    struct Step {
        std::function<bool()> isDue;
        std::function<void()> act;
    };

    TheOnlinePassword() : SyncFixture(asking) {}

    void SetUp() override {
        if (!server_.start()) GTEST_SKIP() << "python3 or openssl is missing";
        quelm::SetLogSink([this](std::string_view line) {
            const std::lock_guard lock(mutex_);
            log_.emplace_back(line);
        });
        useServer(server_.secure());
    }
    void TearDown() override {
        quelm::SetLogSink(nullptr);
        EXPECT_THAT(log_, testing::Each(Not(HasSubstr("password="))));
    }

    void useServer(const std::string& address) {
        ASSERT_TRUE(StorePropertiesToFile(folder_ / "server_info.plist",
                                          Dictionary{{"api_server", address}}));
    }
    void useRecord(Dictionary changes) {
        for (const auto& [key, value] : asking) {
            if (!changes.find(key)) changes.set(key, value);
        }
        ASSERT_TRUE(StorePropertiesToFile(folder_ / "user_info.plist", changes));
        accounts_.emplace(false);
    }
    void makeController(std::chrono::milliseconds limit = 30s) {
        makeController(background_, limit);
    }
    void makeController(quelm::Background& background, std::chrono::milliseconds limit) {
        HttpOptions options;
        options.timeLimit = limit;
        controller_ = std::make_unique<OnlinePasswordController>(
            OnlinePasswordController::Environment{qtLoop_, background, alerts_, windows_,
                                                  *accounts_, options},
            nullptr);
    }
    OnlinePasswordOutlets& shown() { return *windows_.password; }
    [[nodiscard]] bool isIdle() const {
        return windows_.password && !windows_.password->_indicator.isAnimating();
    }

    Step enter(const char* password) {
        return {[this] { return isIdle(); },
                [this, password] {
                    shown()._password.setStringValue(password);
                    shown()._okButton.performClick();
                    EXPECT_FALSE(shown()._okButton.isEnabled());
                    EXPECT_FALSE(shown()._password.isEnabled());
                }};
    }
    Step look(std::function<void()> look) {
        return {[this] { return isIdle(); }, std::move(look)};
    }
    Step pressCancel() {
        return look([this] { shown()._cancelButton.performClick(); });
    }
    /// The window, in which the steps are taken one after the other, each as soon as it is due.
    bool check(const std::vector<Step>& steps) {
        std::size_t next = 0;
        const auto person = qtLoop_.every(2ms, [&] {
            if (next < steps.size() && steps[next].isDue()) steps[next++].act();
        });
        const auto limit = qtLoop_.after(20s, [this] {
            ADD_FAILURE() << "the window stays for ever";
            qtLoop_.stopModal(-1);
        });
        const bool isAccepted = controller_->checkPassword();
        EXPECT_EQ(next, steps.size());
        return isAccepted;
    }
    /// Every request that reached the service.
    std::string asked() {
        HTTPConnection connection(qtLoop_, "");
        connection.setSynchronous(true);
        std::string requests;
        connection.sendRequest(
            server_.secure("/asked"), [&](const std::string& data) { requests = data; },
            [](const std::optional<HttpError>&) { ADD_FAILURE(); });
        return requests;
    }
    std::size_t silenceAsked() {
        std::size_t count = 0;
        const std::string requests = asked();
        for (std::size_t at = 0; (at = requests.find("password=silence", at)) != requests.npos;
             ++at)
            ++count;
        return count;
    }
    std::string takeAlert() {
        if (alerts_.shown.empty()) return "";
        const std::string message = alerts_.shown.back().alert.message;
        alerts_.shown.pop_back();
        EXPECT_TRUE(alerts_.shown.empty()) << "more than one at once";
        return message;
    }
    void finishBackground() {
        EXPECT_TRUE(background_.waitUntilIdle(10s));
        qtLoop_.processPending();
    }

    int count_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    QCoreApplication application_{count_, arguments_};
    platform::QtRunLoop qtLoop_;
    test_support::HttpsServer server_;
    quelm::BackgroundThread background_{qtLoop_};
    test_support::FakeAlerts alerts_;
    test_support::FakeWindows windows_;
    std::unique_ptr<OnlinePasswordController> controller_;
    std::mutex mutex_;  // for the log: requests run on threads of their own
};

TEST_F(TheOnlinePassword, IsAskedForUntilTheServiceAcceptsIt) {
    struct Attempt {
        const char* password;
        std::size_t shakes;
        const char* message;
        const char* alert;
    };
    static constexpr auto attempts = std::to_array<Attempt>(
        {{"wrong", 1, "Invalid credentials.", ""},
         {"locked", 2,
          "Your account has been locked for several minutes because of too many failed login "
          "attempts.",
          ""},
         {"garbage", 2, "", "Invalid response from server."},
         {"wrong", 3, "Invalid credentials.", ""}});
    makeController();
    std::vector<Step> steps = {look([this] {
        EXPECT_EQ(shown()._firstLine.stringValue(),
                  "Enter your Corvanta Tidewell Backup password:");
        EXPECT_TRUE(shown()._message.isHidden());
        EXPECT_EQ(shown()._enterPasswordWindow.raises(), 1U);
    })};
    for (const Attempt& attempt : attempts) {
        steps.push_back(enter(attempt.password));
        steps.push_back(look([this, &attempt] {
            SCOPED_TRACE(attempt.password);
            EXPECT_TRUE(shown()._enterPasswordWindow.isOpen());
            EXPECT_TRUE(shown()._okButton.isEnabled());
            EXPECT_TRUE(shown()._password.isEnabled());
            EXPECT_EQ(shown()._enterPasswordWindow.shakes(), attempt.shakes);
            EXPECT_EQ(shown()._password.selections(), attempt.shakes);
            EXPECT_EQ(shown()._message.isHidden(), *attempt.message == '\0');
            if (!shown()._message.isHidden()) {
                EXPECT_EQ(shown()._message.stringValue(), attempt.message);
            }
            if (*attempt.alert != '\0') {
                ASSERT_FALSE(alerts_.shown.empty());
                EXPECT_EQ(alerts_.shown.back().alert.title, "Fatal error");
                EXPECT_EQ(alerts_.shown.back().alert.style, AlertStyle::Critical);
            }
            EXPECT_EQ(takeAlert(), attempt.alert);
        }));
    }
    steps.push_back(enter("right"));
    EXPECT_TRUE(check(steps));
    EXPECT_FALSE(shown()._enterPasswordWindow.isOpen());
    EXPECT_THAT(asked(), HasSubstr("&command=verifyAccount&username=anna%40example%2Eorg"
                                   "&password=right"));
    controller_.reset();
    EXPECT_EQ(windows_.password, nullptr);
}

TEST_F(TheOnlinePassword, TellsOfAServiceThatDoesNotAnswerAndStays) {
    const std::vector<std::string> servers = {server_.secure(), "https://127.0.0.1:1"};
    for (const std::string& address : servers) {
        useServer(address);
        makeController(400ms);
        int ticks = 0;
        const auto timer = qtLoop_.every(5ms, [&] { ++ticks; });
        const auto tellsOfError = look([&] {
            ASSERT_FALSE(alerts_.shown.empty());
            EXPECT_EQ(alerts_.shown.back().alert.informativeText,
                      "Please check your connection and retry.");
            EXPECT_EQ(takeAlert(), "Connection error.");
            EXPECT_TRUE(shown()._enterPasswordWindow.isOpen());
            EXPECT_TRUE(shown()._okButton.isEnabled());
            EXPECT_TRUE(shown()._password.isEnabled());
            EXPECT_EQ(shown()._enterPasswordWindow.shakes(), 0U);
        });
        EXPECT_FALSE(check({enter("silence"), tellsOfError, pressCancel()})) << address;
        if (address == server_.secure()) {
            EXPECT_GT(ticks, 20) << "nothing else stood still";
        }
    }
}

TEST_F(TheOnlinePassword, CanBeCancelledAtAnyTime) {
    struct Way {
        const char* name;
        std::function<void()> end;
    };
    const std::vector<Way> ways = {
        {"button", [this] { shown()._cancelButton.performClick(); }},
        {"window", [this] { shown()._enterPasswordWindow.performClose(); }},
        {"owner", [this] { controller_.reset(); }},
    };
    for (const Way& way : ways) {
        SCOPED_TRACE(way.name);
        makeController();
        const std::size_t before = silenceAsked();
        std::chrono::steady_clock::time_point ended;
        EXPECT_FALSE(check({enter("silence"),
                            {[&] { return silenceAsked() > before; },
                             [&] {
                                 ended = std::chrono::steady_clock::now();
                                 way.end();
                             }}}));
        EXPECT_LT(std::chrono::steady_clock::now() - ended, 2s) << "the request has 30";
        controller_.reset();
        EXPECT_EQ(windows_.password, nullptr);
        EXPECT_EQ(takeAlert(), "");
    }

    useServer(server_.secure("/early"));
    test_support::HeldBackground held;
    held.held = true;
    makeController(held, 30s);
    const Step cancel = {[] { return true; }, [this] { shown()._cancelButton.performClick(); }};
    EXPECT_FALSE(check({enter("right"), cancel})) << "before it was known whom to ask";
    held.release();
    useServer(server_.secure());
    const auto early = std::exchange(controller_, nullptr);
    makeController();
    EXPECT_TRUE(check({enter("right")}));
    EXPECT_THAT(asked(), Not(HasSubstr("/early"))) << "nothing is sent afterwards";
}

TEST_F(TheOnlinePassword, IsNotAskedForWhereNobodyWantsIt) {
    useRecord({{"ask_for_password", false}});
    makeController();
    EXPECT_TRUE(controller_->checkPassword());
    EXPECT_EQ(windows_.password, nullptr);
    EXPECT_EQ(asked(), "");
}

TEST_F(TheOnlinePassword, IsNotAskedForAgainIfThePersonAndThePolicyAgree) {
    struct Case {
        const char* what;
        bool isTicked;
        bool isDisabled;
        bool isLocked;
        bool isStored;
    };
    static constexpr auto cases =
        std::to_array<Case>({{"ticked", true, false, false, true},
                             {"not ticked", false, false, false, false},
                             {"disabled", true, true, false, false},
                             {"locked by policy", true, false, true, false}});
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        useRecord({{"policy_agent_config_locked", each.isLocked}});
        makeController();
        if (each.isDisabled) controller_->disableRememberPassword();
        const std::size_t before = center_->posted().size();
        const auto tick = look([this, each] {
            EXPECT_EQ(shown()._rememberPassword.isEnabled(), !each.isDisabled && !each.isLocked);
            EXPECT_EQ(shown()._rememberPassword.isOn(), each.isDisabled);
            shown()._rememberPassword.setOn(each.isTicked);
        });
        EXPECT_TRUE(check({tick, enter("right")}));
        controller_.reset();
        finishBackground();
        const auto record = LoadPropertiesFromFile(folder_ / "user_info.plist");
        ASSERT_TRUE(record && record->asDictionary());
        EXPECT_EQ(*record->asDictionary()->find("ask_for_password"), quelm::Value(!each.isStored));
        const auto posted = center_->posted();
        ASSERT_EQ(posted.size() - before, each.isStored ? 1U : 0U);
        if (!each.isStored) continue;
        EXPECT_EQ(posted.back().name, notifications::settingsChanged);
        EXPECT_EQ(posted.back().payload, (Dictionary{{"agent-id", "1"}, {"hint", 0x4000}}));
    }
}

}  // namespace

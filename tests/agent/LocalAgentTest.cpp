#include <gtest/gtest.h>
#include <optional>

#include "agent/AccountLock.h"
#include "agent/LocalAgent.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "config/PropertyFiles.h"
#include "platform/Services.h"
#include "support/ManualRunLoop.h"
#include "support/ProcessNotifications.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace orv;
using quelm::Dictionary;

class TheAgent : public testing::Test {
 protected:
    TheAgent() { ClearConfigBasePath(); }
    ~TheAgent() override {
        agent_.reset();
        ClearConfigBasePath();
    }

    void start(const std::string& account) { agent_.emplace(account, loop_, *center_); }
    void send(const char* event, const Dictionary& payload) {
        Dictionary whole = payload;
        whole.set("event_name", event);
        center_->deliver(notifications::agentEvent, defaultNotificationObject, whole);
    }
    /// The states that were reported since the last call.
    std::vector<std::int64_t> reported() {
        std::vector<std::int64_t> states;
        const auto posted = center_->posted();
        for (; seen_ < posted.size(); ++seen_) {
            EXPECT_EQ(posted[seen_].name, notifications::connectionStatusChanged);
            states.push_back(*posted[seen_].payload.find("status")->asInteger());
            since_ = *posted[seen_].payload.find("timestamp")->asInteger();
        }
        return states;
    }

    using States = std::vector<std::int64_t>;
    test_support::ProcessNotifications center_;
    test_support::TemporaryFolder folder_;
    test_support::ScopedEnvironment home_{"HOME", folder_.path()};
    test_support::ManualRunLoop loop_;
    std::size_t seen_ = 0;
    std::int64_t since_ = 0;
    std::optional<LocalAgent> agent_;
};

TEST_F(TheAgent, ConnectsAndDisconnectsOnRequestStepByStep) {
    start("1");
    EXPECT_EQ(reported(), States{1});
    send("request_connect", {{"agent-id", "0"}});
    send("request_connect", {});
    EXPECT_EQ(reported(), (States{2, 2})) << "asked twice, it says how far it is";
    loop_.processPending();
    EXPECT_EQ(reported(), (States{3, 4}));
    send("request_disconnect", {{"agent-id", "1"}});
    EXPECT_EQ(reported(), States{1});
    send("request_connect", {});
    send("request_disconnect", {});
    loop_.processPending();
    EXPECT_EQ(reported(), (States{2, 1})) << "a connection under way is given up";
    send("request_connect", {});
    loop_.processPending();
    reported();
    agent_.reset();
    EXPECT_EQ(reported(), States{1}) << "no agent runs";
}

TEST_F(TheAgent, HearsWhatConcernsItsAccountOrAll) {
    start("42");
    EXPECT_EQ(center_->announced, std::vector<std::string>{"com.quelm.client.Agent.account_42"});
    reported();
    for (const char* other : {"0", "1", "4", ""})
        send("request_connect", {{"agent-id", other}});
    EXPECT_EQ(reported(), States{});
    send("request_connect", {{"agent-id", "42"}});
    EXPECT_EQ(reported(), States{2});
}

TEST_F(TheAgent, ReportsItsStateSinceItBeganWheneverItIsAskedOrTheBusIsBack) {
    start("1");
    reported();
    const auto since = since_;
    loop_.advance(std::chrono::hours(1));
    center_->deliver(notifications::reportStatus, defaultNotificationObject, {{"agent-id", "1"}});
    center_->deliver(notifications::reportStatus, defaultNotificationObject, {{"agent-id", "2"}});
    center_->connect(false);
    center_->connect(true);
    EXPECT_EQ(reported(), (States{1, 1}));
    EXPECT_EQ(since_, since);
}

TEST_F(TheAgent, ReadsItsSettingsAgainWhenTheyChangeAndKeepsThemWhenItCannot) {
    folder_.makeFolder("Library/Preferences/com.corvanta.orv");
    const std::string path = GetConfigurationPath(files::userInfo);
    start("1");
    EXPECT_EQ(agent_->settings(), Dictionary{});
    const Dictionary settings{{"rcid", "7"}};
    ASSERT_TRUE(StorePropertiesToFile(path, settings));
    const auto tell = [this](const char* account) {
        center_->deliver(notifications::settingsChanged, defaultNotificationObject,
                         {{"agent-id", account}, {"hint", 0x4000}});
    };
    tell("2");
    EXPECT_EQ(agent_->settings(), Dictionary{});
    tell("1");
    EXPECT_EQ(agent_->settings(), settings);
    folder_.makeFile("Library/Preferences/com.corvanta.orv/user_info.plist", "<plist>");
    tell("1");
    EXPECT_EQ(agent_->settings(), settings);
}

TEST_F(TheAgent, IsTheOnlyOneOfItsAccount) {
    std::string error;
    auto first = AccountLock::take("1", error);
    ASSERT_TRUE(first) << error;
    EXPECT_FALSE(AccountLock::take("0", error)) << "0 and 1 are one account";
    EXPECT_NE(error.find(std::to_string(::getpid())), error.npos) << error;
    EXPECT_TRUE(AccountLock::take("2", error));
    first.reset();
    EXPECT_TRUE(AccountLock::take("0", error));
}

}  // namespace

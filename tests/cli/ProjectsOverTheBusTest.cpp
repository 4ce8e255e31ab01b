#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <optional>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "config/ConfigurationPath.h"
#include "config/PropertyAccess.h"
#include "platform/Services.h"
#include "platform/linux/bus/DBusNotificationCenter.h"
#include "support/ManualRunLoop.h"
#include "support/PrivateBus.h"
#include "support/ScopedEnvironment.h"
#include "sync/projects/ProjectsList.h"

namespace {

using namespace orv;
using namespace std::chrono_literals;
using nlohmann::json;
using quelm::Dictionary;
using test_support::WaitUntil;

constexpr const char* subscribedXml =
    "<project-list><project><id>12</id><name>Plans</name><owner>Anna</owner>"
    "<local-path>/p/Plans</local-path><synced-files>3</synced-files><synced-size>1536</synced-size>"
    "<subscribed>1</subscribed></project></project-list>";
constexpr const char* availableXml =
    "<project-list><project><id>13</id><known>0</known></project></project-list>";

/// An agent that answers from a script.
class ScriptedAgent {
 public:
    explicit ScriptedAgent(const std::string& address)
        : center_(loop_, address, [](const std::string&) {}) {
        center_.announce("com.quelm.client.Agent.account_1");
        observation_ = center_.observe(notifications::agentEvent, defaultNotificationObject,
                                       [this](const Dictionary& payload) { hear(payload); });
        EXPECT_TRUE(center_.waitUntilListening(10s));
        EXPECT_TRUE(WaitUntil(
            [this] { return center_.isAnnounced("com.quelm.client.Agent.account_1", 1s); }));
    }
    void work() { loop_.processPending(); }
    [[nodiscard]] int answered() const { return answered_; }

 private:
    void hear(const Dictionary& payload) {
        if (GetStringProperty(payload, "event_name") != "sync_request") return;
        const auto command = GetStringProperty(payload, "command");
        if (command == "subscribed-projects") answer(*command, subscribedXml);
        if (command == "not-subscribed-projects") answer(*command, availableXml);
        if (command == "request-locked-items") {
            send("sync_item", {{"item_id", "a"}, {"path", "/p/a"}, {"lock", "2"}});
            send("sync_item", {{"item_id", "b"}, {"path", "/p/b"}, {"lock", "3"}});
            send(
                "sync_item",
                {{"item_id", "c"}, {"path", "/p/c"}, {"lock", "1"}, {"lock_holder", "Bob\x1b[2J"}});
        }
    }
    void answer(const std::string& command, const char* xml) {
        send("sync_response", {{"command", command}, {"result", "0"}, {"project-list", xml}});
        ++answered_;
    }
    void send(const char* event, Dictionary payload) {
        payload.set("event_name", event);
        payload.set("agent-id", "1");
        center_.post(notifications::agentEvent, defaultNotificationObject, payload);
    }

    test_support::ManualRunLoop loop_;
    platform::DBusNotificationCenter center_;
    std::unique_ptr<platform::DistributedNotificationCenter::Observation> observation_;
    int answered_ = 0;
};

class ProjectsOverTheBus : public testing::Test {
 protected:
    void SetUp() override { ASSERT_TRUE(bus_.runs()); }

    struct Outcome {
        int code = -1;
        std::string output;
    };
    /// Runs orvctl beside the agent, if there is one.
    Outcome orvctl(std::vector<std::string> words) {
        words.insert(words.begin(), ORVCTL);
        const std::string output = outputFolder_ / "output";
        test_support::ChildProcess child;
        EXPECT_TRUE(child.start({.words = words,
                                 .environment = {{"HOME", folder_.path()},
                                                 {"DBUS_SESSION_BUS_ADDRESS", bus_.address()}},
                                 .outputFile = output}));
        Outcome outcome;
        EXPECT_TRUE(WaitUntil([&] {
            if (agent_) agent_->work();
            const auto code = child.ended();
            outcome.code = code.value_or(-1);
            return code.has_value();
        }));
        outcome.output = test_support::ContentOf(output);
        return outcome;
    }

    test_support::PrivateBus bus_;
    test_support::TemporaryFolder folder_;
    test_support::TemporaryFolder outputFolder_;
    std::optional<ScriptedAgent> agent_;
};

TEST_F(ProjectsOverTheBus, OrvctlShowsWhatTheAgentAnswers) {
    EXPECT_EQ(orvctl({"projects", "list", "--available"}).code, 3) << "no agent, nothing stored";
    EXPECT_EQ(orvctl({"locks", "--json"}).code, 3);
    agent_.emplace(bus_.address());
    const Outcome subscribed = orvctl({"projects", "list", "--json"});
    EXPECT_EQ(subscribed.code, 0) << subscribed.output;
    const json expected = {
        {"id", "12"},         {"name", "Plans"},          {"owner", "Anna"},
        {"ownedByMe", false}, {"synced-files", 3},        {"synced-size", 1536},
        {"subscribed", true}, {"local-path", "/p/Plans"}, {"status", "3 files, 1.5 KB"}};
    EXPECT_EQ(json::parse(subscribed.output), json::array({expected}));
    EXPECT_EQ(orvctl({"projects", "show", "12", "--json"}).output, expected.dump() + "\n");
    EXPECT_EQ(orvctl({"projects", "show", "13"}).code, 1);
    EXPECT_EQ(orvctl({"projects", "list", "--available"}).output, "13 , : 0 files, 0 B\n");
    EXPECT_EQ(orvctl({"projects", "request"}).code, 0);
    const auto locks = json::parse(orvctl({"locks", "--json"}).output);
    EXPECT_EQ(locks.size(), 3U);
    EXPECT_EQ(locks[1]["lockStatus"], "SYNC_PENDING_UNLOCK");
    EXPECT_NE(orvctl({"locks"}).output.find("/p/c: locked by Bob\\x1b[2J\n"), std::string::npos);
    EXPECT_EQ(orvctl({"locks", "--mine"}).output, "/p/a: locked by you\n/p/b: locked by you\n");
    EXPECT_TRUE(std::filesystem::is_empty(folder_.path())) << "looking writes nothing";
}

TEST_F(ProjectsOverTheBus, TheSameAnswerAgainIsNoNews) {
    agent_.emplace(bus_.address());
    test_support::ManualRunLoop loop;
    platform::LocalNotifications notifications(loop);
    SetConfigBasePath(folder_.makeFolder("configuration"));
    platform::ProcessServices().notifications = std::make_unique<platform::DBusNotificationCenter>(
        loop, bus_.address(), [](const std::string&) {});
    {
        const AgentEventSession session;
        AgentEventDispatcher dispatcher;
        AccountList accounts(false);
        ProjectsList list({loop, notifications, dispatcher, accounts});
        struct Client {
            int told = 0;
            void changed() { ++told; }
        } client;
        list.addClient(&client, MakeSelector<&Client::changed>("changed"));
        ASSERT_TRUE(platform::ProcessServices().notifications->waitUntilListening(10s));
        // the barrier: what is answered to a later request arrives behind the answers before it
        const auto askAndTake = [&] {
            const int before = agent_->answered();
            list.requestSubscribedProjects();
            const bool answered = WaitUntil([&] {
                agent_->work();
                loop.processPending();
                return agent_->answered() > before;
            });
            agent_->work();
            return answered;
        };
        EXPECT_TRUE(askAndTake());
        EXPECT_TRUE(WaitUntil([&] {
            loop.processPending();
            return client.told == 1;
        }));
        EXPECT_EQ(list.subscribedProjectsCount(), 1U);
        EXPECT_TRUE(askAndTake());
        list.requestNotSubscribedProjects();
        EXPECT_TRUE(WaitUntil([&] {
            agent_->work();
            loop.processPending();
            return list.notSubscribedProjectsReceived();
        }));
        loop.processPending();
        EXPECT_EQ(client.told, 2) << "of the first answer, and of the projects to subscribe to";
        list.removeClient(&client);
    }
    platform::EndProcessServices();
    ClearConfigBasePath();
}

}  // namespace

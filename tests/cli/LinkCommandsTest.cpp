#include <gtest/gtest.h>
#include <sstream>

#include "agentlink/AgentEventQueue.h"
#include "cli/Command.h"
#include "config/ConfigurationPath.h"
#include "platform/Services.h"
#include "support/ManualRunLoop.h"
#include "support/ProcessNotifications.h"

namespace {

using orv::cli::ExitCode;
using quelm::Dictionary;

class LinkCommands : public testing::Test {
 protected:
    LinkCommands() {
        auto loop = std::make_unique<test_support::ManualRunLoop>();
        loop_ = loop.get();
        platform::ProcessServices().runLoop = std::move(loop);
        orv::BeginAgentEvents();
    }
    ~LinkCommands() override {
        orv::EndAgentEvents(std::chrono::seconds(10));
        orv::AgentID.clear();
    }

    ExitCode run(const std::vector<std::string>& words) {
        return orv::cli::RunCommandLine(words, out_, err_);
    }

    test_support::ProcessNotifications center_;
    test_support::ManualRunLoop* loop_;
    std::ostringstream out_, err_;
};

TEST_F(LinkCommands, SendWhatTheirArgumentsSay) {
    center_->announced = {"com.quelm.client.Agent.account_1"};
    EXPECT_EQ(run({"send", "request_connect", "a=", "b=c=d", "--agent=0"}), ExitCode::Done);
    EXPECT_EQ(center_->posted().at(0).payload,
              (Dictionary{
                  {"a", ""}, {"agent-id", "0"}, {"b", "c=d"}, {"event_name", "request_connect"}}));
}

TEST_F(LinkCommands, NotifyTheAccountOfTheCommandLine) {
    EXPECT_EQ(run({"--account", "7", "notify", "settings", "0xc000"}), ExitCode::Done);
    EXPECT_EQ(center_->posted().at(0).payload, (Dictionary{{"agent-id", "7"}, {"hint", 0xC000}}));
}

TEST_F(LinkCommands, NotifyAStateAsOfNow) {
    EXPECT_EQ(run({"notify", "status", "4"}), ExitCode::Done);
    const Dictionary payload = center_->posted().at(0).payload;
    EXPECT_EQ(*payload.find("status"), quelm::Value(4));
    EXPECT_GT(*payload.find("timestamp")->asInteger(), 1'700'000'000);
}

TEST_F(LinkCommands, SayThatNoAgentIsThereForWhatOnlyAgentsHear) {
    EXPECT_EQ(run({"send", "request_connect"}), ExitCode::NoAgent);
    EXPECT_EQ(center_->posted().size(), 1U) << "it is sent all the same";
    platform::ProcessServices().notifications.reset();
    for (const auto& words :
         {std::vector<std::string>{"send", "store_status"}, {"notify", "report"}, {"events"}}) {
        EXPECT_EQ(run(words), ExitCode::NoAgent);
    }
    EXPECT_EQ(out_.str(), "");
}

TEST_F(LinkCommands, RefuseWhatTheyDoNotUnderstand) {
    const std::vector<std::vector<std::string>> wrong = {{"send"},
                                                         {"send", "x", "novalue"},
                                                         {"send", "x", "=value"},
                                                         {"send", "x", "--agent", "../1"},
                                                         {"send", "x", "--count", "1"},
                                                         {"notify", "settings", "0x1FFFFFFFF"},
                                                         {"notify", "settings", "-1"},
                                                         {"notify", "status", "4x"},
                                                         {"events", "--count", "0"},
                                                         {"events", "--count"}};
    for (const auto& words : wrong)
        EXPECT_EQ(run(words), ExitCode::Usage) << words.back();
    EXPECT_TRUE(center_->posted().empty());
}

TEST_F(LinkCommands, PrintTheEventsAskedForAndEndAfterTheLast) {
    loop_->post([this] {
        const auto event = [this](const char* name, const char* agent) {
            center_->deliver("com.quelm.client.AgentEvent", "com.corvanta.orv",
                             {{"event_name", name}, {"agent-id", agent}});
        };
        event("other", "1");
        event("wanted", "2");
        event("wanted", "1");
        center_->deliver("com.quelm.client.ReportStatus", "com.corvanta.orv", {{"agent-id", "1"}});
        event("wanted", "1");
    });
    EXPECT_EQ(run({"events", "--name", "wanted", "--name", "ReportStatus", "--agent", "1",
                   "--count", "2"}),
              ExitCode::Done);
    EXPECT_EQ(out_.str(),
              "{\"ready\":true}\n"
              "{\"notification\":\"com.quelm.client.AgentEvent\",\"payload\":"
              "{\"agent-id\":\"1\",\"event_name\":\"wanted\"}}\n"
              "{\"notification\":\"com.quelm.client.ReportStatus\",\"payload\":"
              "{\"agent-id\":\"1\"}}\n");
}

}  // namespace

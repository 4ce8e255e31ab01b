#include <csignal>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "support/ChildProcess.h"
#include "support/PrivateBus.h"

namespace {

using nlohmann::json;
using test_support::ChildProcess;

/// The real programs on a bus and in a home folder of their own.
class TheAgentProcess : public testing::Test {
 protected:
    void SetUp() override { ASSERT_TRUE(bus_.runs()); }

    ChildProcess::Setup setup(std::vector<std::string> words, const std::string& output) const {
        return {
            .words = std::move(words),
            .environment = {{"HOME", home_.path()}, {"DBUS_SESSION_BUS_ADDRESS", bus_.address()}},
            .input = "",
            .outputFile = home_ / output};
    }
    int orvctl(std::vector<std::string> words) const {
        words.insert(words.begin(), ORVCTL);
        return test_support::RunProgram(setup(words, "orvctl.out"));
    }
    [[nodiscard]] std::vector<json> lines(const std::string& output) const {
        std::istringstream stream(test_support::ContentOf(home_ / output));
        std::vector<json> lines;
        for (std::string line; std::getline(stream, line);)
            if (!stream.eof()) lines.push_back(json::parse(line));
        return lines;
    }
    [[nodiscard]] bool prints(const std::string& output, std::size_t count) const {
        return test_support::WaitUntil([&] { return lines(output).size() >= count; });
    }
    /// The numbers under "status" of those lines that have one.
    [[nodiscard]] std::vector<int> states(const std::string& output) const {
        std::vector<int> states;
        for (const json& line : lines(output)) {
            if (line.value("notification", "") == "com.quelm.client.ConnectionStatusChanged")
                states.push_back(line["payload"]["status"]);
        }
        return states;
    }

    test_support::PrivateBus bus_;
    test_support::TemporaryFolder home_;
    ChildProcess agent_, events_;
};

TEST_F(TheAgentProcess, IsDrivenByOrvctlAndHeardByIt) {
    EXPECT_EQ(orvctl({"send", "request_connect"}), 3) << "no agent yet";
    ASSERT_TRUE(events_.start(setup({ORVCTL, "events"}, "events")));
    ASSERT_TRUE(prints("events", 1));
    EXPECT_EQ(lines("events").at(0), json({{"ready", true}}));
    ASSERT_TRUE(agent_.start(setup({ORV_AGENT, "1"}, "agent")));
    ASSERT_TRUE(test_support::WaitUntil([&] { return orvctl({"send", "request_connect"}) == 0; }));
    const auto reaches = [&](int state) {
        return test_support::WaitUntil([&] {
            const auto reached = states("events");
            return !reached.empty() && reached.back() == state;
        });
    };
    ASSERT_TRUE(reaches(4));
    EXPECT_EQ(orvctl({"notify", "settings", "0x4000"}), 0);
    EXPECT_EQ(orvctl({"notify", "report"}), 0);
    EXPECT_EQ(orvctl({"send", "request_disconnect", "reason=a=b"}), 0);
    ASSERT_TRUE(reaches(1));
    agent_.signal(SIGTERM);
    EXPECT_EQ(agent_.wait(), 0);

    auto reached = states("events");
    reached.erase(std::unique(reached.begin(), reached.end()), reached.end());
    EXPECT_EQ(reached, (std::vector<int>{1, 2, 3, 4, 1}));
    const auto all = lines("events");
    const json request = {
        {"notification", "com.quelm.client.AgentEvent"},
        {"payload", {{"agent-id", "1"}, {"event_name", "request_disconnect"}, {"reason", "a=b"}}}};
    EXPECT_EQ(std::count(all.begin(), all.end(), request), 1);
}

TEST_F(TheAgentProcess, IsOneForEachAccountAndSaysSo) {
    ASSERT_TRUE(events_.start(setup(
        {ORVCTL, "events", "--name", "ConnectionStatusChanged", "--agent", "5", "--count", "1"},
        "events")));
    ASSERT_TRUE(prints("events", 1));
    ASSERT_TRUE(agent_.start(setup({ORV_AGENT, "5"}, "agent")));
    EXPECT_EQ(events_.wait(), 0) << "after the one that it was to print";
    EXPECT_EQ(states("events"), std::vector<int>{1});
    EXPECT_EQ(test_support::RunProgram(setup({ORV_AGENT, "5"}, "second")), 1);
    EXPECT_NE(test_support::ContentOf(home_ / "second").find("running already"), std::string::npos);
    EXPECT_EQ(test_support::RunProgram(setup({ORV_AGENT}, "usage")), 2);
    EXPECT_EQ(test_support::RunProgram(setup({ORV_AGENT, "../1"}, "usage")), 2);
}

}  // namespace

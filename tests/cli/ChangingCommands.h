#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "agentlink/AgentEventQueue.h"
#include "cli/Command.h"
#include "config/ConfigurationPath.h"
#include "platform/Services.h"
#include "support/FakeNotificationCenter.h"
#include "support/TemporaryFolder.h"

namespace test_support {

/// Runs commands that change the settings in a folder of their own.
class ChangingCommands : public testing::Test {
 protected:
    ChangingCommands() { orv::SetConfigBasePath(folder.path()); }
    ~ChangingCommands() override {
        orv::ClearConfigBasePath();
        platform::EndProcessServices();
    }

    /// On a bus of its own; `hints` is what it posted.
    orv::cli::ExitCode run(const std::vector<std::string>& words) {
        auto center = std::make_unique<FakeNotificationCenter>();
        auto& bus = *center;
        platform::ProcessServices().notifications = std::move(center);
        orv::BeginAgentEvents();
        out.str("");
        err.str("");
        const auto code = orv::cli::RunCommandLine(words, out, err);
        orv::EndAgentEvents(std::chrono::seconds(10));
        hints.clear();
        for (const auto& posted : bus.posted())
            hints.push_back(*posted.payload.find("hint")->asInteger());
        platform::ProcessServices().notifications.reset();
        return code;
    }
    nlohmann::json runForJson(std::vector<std::string> words) {
        words.insert(words.begin(), "--json");
        EXPECT_EQ(run(words), orv::cli::ExitCode::Done) << err.str();
        return nlohmann::json::parse(out.str());
    }

    /// The account's.
    const TemporaryFolder folder;
    std::ostringstream out, err;
    std::vector<std::int64_t> hints;
};

}  // namespace test_support

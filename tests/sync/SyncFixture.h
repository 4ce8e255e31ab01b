#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "foundation/system/Log.h"
#include "support/ManualRunLoop.h"
#include "support/ProcessNotifications.h"
#include "support/TemporaryFolder.h"
#include "sync/SyncEnvironment.h"

namespace test_support {

/// What a list of projects or locks works with, in a configuration folder of its own.
class SyncFixture : public testing::Test {
 protected:
    explicit SyncFixture(const quelm::Dictionary& record) {
        orv::SetConfigBasePath(folder_.path());
        quelm::SetLogSink([this](std::string_view line) { log_.emplace_back(line); });
        EXPECT_TRUE(orv::StorePropertiesToFile(folder_ / "user_info.plist", record));
        orv::BeginAgentEvents();
        dispatcher_.emplace();
        accounts_.emplace(false);
    }
    /// After the list has gone.
    ~SyncFixture() override {
        orv::EndAgentEvents(std::chrono::seconds(10));
        quelm::SetLogSink(nullptr);
        orv::ClearConfigBasePath();
    }

    orv::SyncEnvironment environment() { return {loop_, notifications_, *dispatcher_, *accounts_}; }
    /// As an agent sends it.
    void event(const char* name, quelm::Dictionary payload) {
        payload.set("event_name", name);
        center_->deliver(orv::notifications::agentEvent, orv::defaultNotificationObject, payload);
        loop_.processPending();
    }

    ProcessNotifications center_;
    ManualRunLoop loop_;
    TemporaryFolder folder_;
    platform::LocalNotifications notifications_{loop_};
    std::optional<orv::AgentEventDispatcher> dispatcher_;
    std::optional<orv::AccountList> accounts_;
    std::vector<std::string> log_;
};

}  // namespace test_support

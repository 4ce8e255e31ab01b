#pragma once

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "platform/Services.h"
#include "support/ManualRunLoop.h"
#include "support/ProcessNotifications.h"

/// A process with a fake bus.
class LinkTest : public testing::Test {
 protected:
    using Payloads = std::vector<quelm::Dictionary>;

    LinkTest() {
        platform::ProcessServices().runLoop = std::make_unique<test_support::ManualRunLoop>();
        orv::BeginAgentEvents();
    }
    ~LinkTest() override {
        center_->hold(false);
        orv::EndAgentEvents(std::chrono::seconds(10));
    }

    /// With a bus on which nothing was posted. The queue has ended before.
    void beginAnew() {
        center_.renew();
        orv::BeginAgentEvents();
    }
    void deliver(const char* name, const quelm::Dictionary& payload) {
        center_->deliver(name, orv::defaultNotificationObject, payload);
    }
    /// What was posted once the queue has been worked off; ends it.
    Payloads sentEvents() {
        center_->hold(false);
        orv::EndAgentEvents(std::chrono::seconds(10));
        Payloads payloads;
        for (const auto& posted : center_->posted()) {
            EXPECT_EQ(posted.name, orv::notifications::agentEvent);
            EXPECT_EQ(posted.object, orv::defaultNotificationObject);
            payloads.push_back(posted.payload);
        }
        return payloads;
    }

    test_support::ProcessNotifications center_;
};

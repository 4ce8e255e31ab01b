#pragma once

#include <chrono>
#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "agentlink/AgentVocabulary.h"
#include "platform/linux/bus/DBusNotificationCenter.h"
#include "support/ManualRunLoop.h"

namespace test_support {

/// Says on a bus what an agent says. What was said has left the process when a call returns.
class AgentVoice {
 public:
    explicit AgentVoice(const std::string& address)
        : center_(loop_, address, [](const std::string&) {}) {}

    /// For account "1" unless the payload names another.
    void event(const char* name, quelm::Dictionary payload) {
        eventLater(name, std::move(payload));
        EXPECT_TRUE(waitUntilHeard());
    }
    void error(const char* message) {
        post(orv::notifications::agentError, {{orv::keys::message, message}});
        EXPECT_TRUE(waitUntilHeard());
    }
    /// Does not wait.
    void eventLater(const char* name, quelm::Dictionary payload) {
        payload.set(orv::keys::eventName, name);
        post(orv::notifications::agentEvent, std::move(payload));
    }
    [[nodiscard]] bool waitUntilHeard() { return center_.waitUntilSent(std::chrono::seconds(10)); }
    /// From now on somebody is there for account "1".
    void announce() { center_.announce("com.quelm.client.Agent.account_1"); }
    [[nodiscard]] bool isAgentThere() {
        return center_.isAnnounced("com.quelm.client.Agent.account_1", std::chrono::seconds(1));
    }

 private:
    void post(const char* notification, quelm::Dictionary payload) {
        if (!payload.find(orv::keys::agentId)) payload.set(orv::keys::agentId, "1");
        center_.post(notification, orv::defaultNotificationObject, payload);
    }

    ManualRunLoop loop_;
    platform::DBusNotificationCenter center_;
};

}  // namespace test_support

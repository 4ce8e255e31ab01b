#include "agentlink/AgentNotifications.h"
#include "agentlink/AgentObservers.h"
#include "agentlink/LinkTest.h"

namespace {

using namespace orv;
using quelm::Dictionary;

/// Notes every call as text.
struct Receiver {
    void note(const AgentId& agent, const std::string& text) {
        calls.push_back(agent.value_or("none") + ": " + text);
    }
    void notifyAgentSettings(std::uint32_t hint, const AgentId& agent) {
        note(agent, "settings " + std::to_string(hint));
    }
    void notifyConnectionStatus(std::int32_t status, std::int64_t timestamp, const AgentId& agent) {
        note(agent, "status " + std::to_string(status) + " at " + std::to_string(timestamp));
    }
    void notifyConnectionError(const std::string& tag, const std::string& message,
                               std::int32_t domain, std::int32_t code, const AgentId& agent) {
        note(agent, "error " + tag + "," + message + "," + std::to_string(domain) + "," +
                        std::to_string(code));
    }
    void notifyAgentEvent(const std::string& name, const Dictionary& payload,
                          const AgentId& agent) {
        note(agent, "event " + name + " of " + std::to_string(payload.size()) + " keys");
    }

    std::vector<std::string> calls;
};

class Notifications : public LinkTest {
 protected:
    Notifications() {
        RegisterAgentSettingsObserver(records_[0], &receiver_,
                                      &ForwardAgentSettingsEvent<Receiver>);
        RegisterConnectionStatusObserver(records_[1], &receiver_,
                                         &ForwardConnectionStatus<Receiver>);
        RegisterAgentErrorObserver(records_[2], &receiver_, &ForwardConnectionError<Receiver>);
        RegisterAgentEventObserver(records_[3], &receiver_, &ForwardAgentEvent<Receiver>);
        RegisterAgentReportStatusObserver(
            records_[4], &receiver_,
            +[](Receiver& receiver, const AgentId& agent) { receiver.note(agent, "report"); });
    }

    Receiver receiver_;
    AgentObserverRecord records_[5];
};

TEST_F(Notifications, ArriveAsTheyWereSent) {
    NotifyAgentSettingsChanged("7", 0xC000);
    NotifyAgentSettingsChanged(std::nullopt, 0xFFFFFFFF);
    NotifyConnectionStatusChanged("7", 4, 1'800'000'000'000);
    NotifyAgentError("7", "tag", "message", 3, 7);
    NotifyAgentReportStatus("7");
    NotifyAgentReportStatus(std::nullopt);
    for (const auto& posted : center_->posted())
        center_->deliver(posted.name, posted.object, posted.payload);
    EXPECT_EQ(receiver_.calls,
              (std::vector<std::string>{"7: settings 49152", "none: settings 4294967295",
                                        "7: status 4 at 1800000000000", "7: error tag,message,3,3",
                                        "7: report", "none: report"}));
}

TEST_F(Notifications, HaveDefaultsForWhatIsMissingOrOfAnotherType) {
    const auto now = std::to_string(
        std::chrono::system_clock::to_time_t(platform::ProcessServices().runLoop->now()));
    struct Case {
        const char* name;
        Dictionary payload;
        std::vector<std::string> calls;
    };
    const std::vector<Case> cases = {
        {notifications::settingsChanged, {}, {"none: settings 65159"}},
        {notifications::settingsChanged,
         {{"hint", "2"}, {"agent-id", 7}},
         {"none: settings 65159"}},
        {notifications::settingsChanged, {{"hint", 0}}, {"none: settings 0"}},
        {notifications::connectionStatusChanged, {{"timestamp", 5}}, {}},
        {notifications::connectionStatusChanged, {{"status", "4"}}, {}},
        {notifications::connectionStatusChanged, {{"status", 4}}, {"none: status 4 at " + now}},
        {notifications::connectionStatusChanged,
         {{"status", 4.0}, {"timestamp", true}},
         {"none: status 4 at " + now}},
        {notifications::agentError, {}, {"none: error ,,0,0"}},
        {notifications::agentError, {{"domain", 3}}, {"none: error ,,3,0"}},
        {notifications::agentError, {{"code", 7}}, {"none: error ,,0,0"}},
        {notifications::agentEvent, {{"x", 1}}, {"none: event  of 1 keys"}},
    };
    for (const auto& [name, payload, calls] : cases) {
        receiver_.calls.clear();
        deliver(name, payload);
        EXPECT_EQ(receiver_.calls, calls) << name << quelm::Value(payload);
    }
}

TEST_F(Notifications, ReachEachRecordOfATargetUntilItIsRemoved) {
    AgentObserverRecord second;
    RegisterConnectionStatusObserver(second, &receiver_, &ForwardConnectionStatus<Receiver>);
    deliver(notifications::connectionStatusChanged, {{"status", 2}, {"timestamp", 1}});
    EXPECT_EQ(receiver_.calls.size(), 2U);
    RemoveAgentObserver(records_[1]);
    deliver(notifications::connectionStatusChanged, {{"status", 3}, {"timestamp", 1}});
    EXPECT_EQ(receiver_.calls.size(), 3U);
}

TEST_F(Notifications, FollowTheObjectStringFromThenOn) {
    SetNotificationObjectID("other");
    AgentObserverRecord record;
    RegisterAgentReportStatusObserver(
        record, &receiver_,
        +[](Receiver& receiver, const AgentId&) { receiver.calls.emplace_back("other report"); });
    NotifyAgentReportStatus("1");
    EXPECT_EQ(center_->posted().back().object, "other");
    center_->deliver(notifications::reportStatus, "other", {});
    SetNotificationObjectID(defaultNotificationObject);
    EXPECT_EQ(receiver_.calls, std::vector<std::string>{"other report"});
}

}  // namespace

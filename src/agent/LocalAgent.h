#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "agentlink/AgentEventDispatcher.h"
#include "agentlink/AgentObservers.h"
#include "agentlink/AgentVocabulary.h"
#include "platform/DistributedNotificationCenter.h"
#include "platform/RunLoop.h"

namespace orv {

/// An account's side of the link: connects and disconnects on request, reports its state, and
/// follows changes of the settings. Main thread.
class LocalAgent {
 public:
    LocalAgent(std::string accountId, platform::RunLoop& runLoop,
               platform::DistributedNotificationCenter& center);
    LocalAgent(const LocalAgent&) = delete;
    LocalAgent& operator=(const LocalAgent&) = delete;
    /// Reports that no agent runs.
    ~LocalAgent();

    [[nodiscard]] ConnectionStatus status() const { return status_; }
    /// What the account's settings hold, as last read.
    [[nodiscard]] const quelm::Dictionary& settings() const { return settings_; }

    // Called for what arrives.
    void handleRequestConnect(const quelm::Dictionary& payload);
    void handleRequestDisconnect(const quelm::Dictionary& payload);
    void notifyAgentSettings(std::uint32_t hint, const AgentId& agentId);

 private:
    [[nodiscard]] bool concerns(const AgentId& agentId) const;
    [[nodiscard]] bool concerns(const quelm::Dictionary& payload) const;
    void enter(ConnectionStatus status);
    void report() const;
    void continueConnecting();
    void loadSettings();

    std::string accountId_;
    platform::RunLoop* runLoop_;
    ConnectionStatus status_ = ConnectionStatus::NotRunning;
    std::int64_t since_ = 0;  // seconds since 1970
    std::unique_ptr<platform::RunLoop::Timer> step_;
    quelm::Dictionary settings_;
    AgentEventDispatcher dispatcher_;
    AgentObserverRecord settingsObserver_;
    AgentObserverRecord reportObserver_;
    std::unique_ptr<platform::DistributedNotificationCenter::Observation> connectionObserver_;
};

}  // namespace orv

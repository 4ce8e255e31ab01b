#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "agentlink/AgentEventDispatcher.h"
#include "agentlink/AgentObservers.h"
#include "pane/status/AgentProgress.h"
#include "pane/status/StatusInputs.h"
#include "pane/status/StatusOutlets.h"
#include "platform/RunLoop.h"

namespace orv {

/// The one state behind everything that shows how the active account's backup and projects stand.
/// Events of its agent change it; every change is shown at once. Main thread only.
class StatusModel {
 public:
    /// Both outlive it. Shows nothing yet.
    StatusModel(StatusOutlets& outlets, platform::RunLoop& runLoop);
    StatusModel(const StatusModel&) = delete;
    StatusModel& operator=(const StatusModel&) = delete;
    ~StatusModel();

    /// Hears the agents from now on; the dispatcher outlives it.
    void registerAgentEvents(AgentEventDispatcher& dispatcher);
    /// What the button performs.
    void setConnectActions(std::function<void()> connect, std::function<void()> disconnect);
    /// Called whenever the backup is seen complete.
    void setCompleted(std::function<void()> completed) { completed_ = std::move(completed); }

    [[nodiscard]] const AgentProgress& progress() const { return progress_; }
    [[nodiscard]] const StatusInputs& inputs() const { return inputs_; }
    /// To be changed; what depends on it is shown with the next redraw.
    [[nodiscard]] StatusInputs& inputs() { return inputs_; }

    /// As it starts: not connected, nothing shown of an agent.
    void startDisconnected();
    /// Another account's agent counts now: what this one said is over. What concerns the computer
    /// and its projects stays.
    void forgetAgent();
    void setProjects(std::int64_t count, std::int64_t files, std::int64_t bytes);
    /// In bytes, until the agent says otherwise.
    void setBackupTotals(std::int64_t total, std::int64_t stored);
    void forgetSpeeds();
    /// What was wrong with the connection is over.
    void clearConnectionError();

    void showConnectionStatus();
    void setConnectButton(std::uint32_t status);
    /// What was shown of the agent's work is over.
    void resetStatusInfo();
    void showBackupStatus();
    void clearBackupStatus();
    void showProjectsStatus();
    void showBackupAndProjectsStatus();
    void updateQuotaStatus();

    // What the agent says. A status that is shown already changes nothing.
    void notifyConnectionStatus(std::int32_t status, std::int64_t timestamp,
                                const AgentId& agentId);
    void notifyConnectionError(const std::string& tag, const std::string& message,
                               std::int32_t domain, std::int32_t code, const AgentId& agentId);
    void handleScanActivity(const quelm::Dictionary& payload);
    void handleShareStatistics(const quelm::Dictionary& payload);
    void handleRequestDisconnect(const quelm::Dictionary& payload);
    void handleRestoreProgress(const quelm::Dictionary& payload);
    void handleStoreStatus(const quelm::Dictionary& payload);
    void handleStoreFileStart(const quelm::Dictionary& payload);
    void handleStoreFileEnd(const quelm::Dictionary& payload);
    void handleStoreProgress(const quelm::Dictionary& payload);
    void handleSpeedStatus(const quelm::Dictionary& payload);
    void handleProgressInfoUpdate(const quelm::Dictionary& payload);
    void handleRoutingNetworkAdapter(const quelm::Dictionary& payload);
    void handleSyncProgress(const quelm::Dictionary& payload);
    void handleSyncQuotaStatus(const quelm::Dictionary& payload);
    void handleLanInfo(const quelm::Dictionary& payload);

 private:
    [[nodiscard]] bool concernsActiveAccount(const quelm::Dictionary& payload) const;
    [[nodiscard]] std::int64_t now() const;
    // Without the headline, which is made once for all lines that an event changes.
    void drawBackup();
    void drawProjects();
    void showHeadline();
    void showNetwork();
    void showRestoreProgress(bool isRestoring);

    StatusOutlets& outlets_;
    platform::RunLoop& runLoop_;
    AgentEventDispatcher* dispatcher_ = nullptr;
    AgentObserverRecord _connectionStatusNotification;
    AgentObserverRecord _connectionErrorNotification;
    std::function<void()> connect_;
    std::function<void()> disconnect_;
    std::function<void()> completed_;
    AgentProgress progress_;
    StatusInputs inputs_;
    /// An agent's error is shown in the connection's info.
    bool _connectionError = false;
    std::string errorText_;
};

}  // namespace orv

#include <algorithm>
#include <cstddef>

#include "agentlink/AgentPayload.h"
#include "agentlink/AgentVocabulary.h"
#include "config/AccountId.h"
#include "foundation/system/ApplicationBundle.h"
#include "foundation/system/LocalizedString.h"
#include "pane/status/StatusModel.h"

// What the agent says, and what of it is shown anew.

namespace orv {

namespace {

using quelm::Dictionary;

/// An agent's message in the person's language, where there is a translation. In bytes; what is
/// longer is cut.
std::string translated(const std::string& message) {
    constexpr std::size_t longest = 1'000;
    const quelm::Bundle* const bundle = quelm::getBundle();
    const std::string* const text =
        bundle ? bundle->localizedString(message, "notifications") : nullptr;
    return text ? *text : message.substr(0, longest);
}

}  // namespace

void StatusModel::registerAgentEvents(AgentEventDispatcher& dispatcher) {
    struct Row {
        const char* event;
        Selector<StatusModel> selector;
    };
    const Row rows[] = {
        {events::scanActivity,
         MakeSelector<&StatusModel::handleScanActivity>("handleScanActivity")},
        {events::shareStatistics,
         MakeSelector<&StatusModel::handleShareStatistics>("handleShareStatistics")},
        {events::requestDisconnect,
         MakeSelector<&StatusModel::handleRequestDisconnect>("handleRequestDisconnect")},
        {events::restoreProgress,
         MakeSelector<&StatusModel::handleRestoreProgress>("handleRestoreProgress")},
        {events::storeStatus, MakeSelector<&StatusModel::handleStoreStatus>("handleStoreStatus")},
        {events::storeFileStart,
         MakeSelector<&StatusModel::handleStoreFileStart>("handleStoreFileStart")},
        {events::storeFileEnd,
         MakeSelector<&StatusModel::handleStoreFileEnd>("handleStoreFileEnd")},
        {events::storeProgress,
         MakeSelector<&StatusModel::handleStoreProgress>("handleStoreProgress")},
        {events::speedStatus, MakeSelector<&StatusModel::handleSpeedStatus>("handleSpeedStatus")},
        {events::progressInfoUpdate,
         MakeSelector<&StatusModel::handleProgressInfoUpdate>("handleProgressInfoUpdate")},
        {events::routingNetworkAdapter,
         MakeSelector<&StatusModel::handleRoutingNetworkAdapter>("handleRoutingNetworkAdapter")},
        {events::syncProgress,
         MakeSelector<&StatusModel::handleSyncProgress>("handleSyncProgress")},
        {events::syncQuotaStatus,
         MakeSelector<&StatusModel::handleSyncQuotaStatus>("handleSyncQuotaStatus")},
        {events::lanInfo, MakeSelector<&StatusModel::handleLanInfo>("handleLanInfo")},
    };
    dispatcher_ = &dispatcher;
    for (const Row& row : rows)
        dispatcher.registerEventName(row.event, this, row.selector);
    RegisterConnectionStatusObserver(_connectionStatusNotification, this,
                                     &ForwardConnectionStatus<StatusModel>);
    RegisterAgentErrorObserver(_connectionErrorNotification, this,
                               &ForwardConnectionError<StatusModel>);
}

bool StatusModel::concernsActiveAccount(const Dictionary& payload) const {
    return IsSameAccount(PayloadText(payload, keys::agentId), inputs_.agentId);
}

void StatusModel::notifyConnectionStatus(std::int32_t status, std::int64_t timestamp,
                                         const AgentId& agentId) {
    if (agentId && !IsSameAccount(*agentId, inputs_.agentId)) return;
    const auto code = static_cast<std::uint32_t>(status);
    if (code == progress_.status) return;
    progress_.status = code;
    progress_.statusTimestamp = timestamp;
    const bool isConnected = progress_.is(ConnectionStatus::Connected);
    const bool isConnecting =
        progress_.is(ConnectionStatus::Connecting) || progress_.is(ConnectionStatus::LoggingIn);
    if (!isConnecting && !isConnected) progress_.isStoreStatusKnown = false;
    if (!isConnected) {
        progress_.syncQuotaStatus = 0;
        if (progress_.uploadSpeed >= 1 || progress_.downloadSpeed >= 1) {
            forgetSpeeds();
            showBackupAndProjectsStatus();
        }
    }
    showConnectionStatus();
    setConnectButton(code);
    // what was said before the connection counts from now on
    if (isConnected) showBackupAndProjectsStatus();
}

void StatusModel::notifyConnectionError(const std::string& /*tag*/, const std::string& message,
                                        std::int32_t /*domain*/, std::int32_t /*code*/,
                                        const AgentId& agentId) {
    if (message.empty() || (agentId && !IsSameAccount(*agentId, inputs_.agentId))) return;
    _connectionError = true;
    errorText_ = translated(message);
    outlets_._connectionInfo.setStringValue(errorText_);
    resetStatusInfo();
    showConnectionStatus();
}

void StatusModel::handleScanActivity(const Dictionary& payload) {
    if (!concernsActiveAccount(payload)) return;
    TakeScanActivity(progress_, payload);
    showBackupStatus();
}

void StatusModel::handleShareStatistics(const Dictionary& payload) {
    if (!concernsActiveAccount(payload)) return;
    TakeShareStatistics(progress_, payload);
    showBackupStatus();
}

void StatusModel::handleRequestDisconnect(const Dictionary& payload) {
    if (concernsActiveAccount(payload)) clearConnectionError();
}

void StatusModel::clearConnectionError() {
    _connectionError = false;
    outlets_._connectionInfo.setStringValue("");
    showConnectionStatus();
}

void StatusModel::handleRestoreProgress(const Dictionary& payload) {
    showRestoreProgress(PayloadNumber(payload, keys::count) != 0);
}

void StatusModel::handleStoreStatus(const Dictionary& payload) {
    if (!concernsActiveAccount(payload)) return;
    TakeStoreStatus(progress_, payload);
    showBackupAndProjectsStatus();
}

void StatusModel::handleStoreFileStart(const Dictionary& payload) {
    TakeStoreFileStart(progress_, payload);
}

void StatusModel::handleStoreFileEnd(const Dictionary& payload) {
    TakeStoreFileEnd(progress_, payload);
    showBackupAndProjectsStatus();
}

void StatusModel::handleStoreProgress(const Dictionary& payload) {
    TakeStoreProgress(progress_, payload);
    showBackupAndProjectsStatus();
}

void StatusModel::handleSpeedStatus(const Dictionary& payload) {
    TakeSpeedStatus(progress_, payload);
    showNetwork();
    showBackupAndProjectsStatus();
}

void StatusModel::handleProgressInfoUpdate(const Dictionary& payload) {
    TakeProgressInfoUpdate(progress_, payload);
}

void StatusModel::handleRoutingNetworkAdapter(const Dictionary& payload) {
    TakeRoutingNetworkAdapter(progress_, payload);
    showConnectionStatus();
}

void StatusModel::handleSyncProgress(const Dictionary& payload) {
    TakeSyncProgress(progress_, payload);
    showProjectsStatus();
}

void StatusModel::handleSyncQuotaStatus(const Dictionary& payload) {
    TakeSyncQuotaStatus(progress_, payload);
    updateQuotaStatus();
}

void StatusModel::handleLanInfo(const Dictionary& payload) {
    if (PayloadText(payload, keys::command) != commands::responseFileServers) return;
    const std::string list = PayloadText(payload, keys::list);
    outlets_._connectedFSA.setStringValue(
        list.empty() ? "" : quelm::FormatLocalizedString("PrefPane.UsingFSA", "Using: %@", {list}));
    outlets_._connectedFSA.setHidden(list.empty());
}

}  // namespace orv

#pragma once

#include <cstdint>
#include <string>

#include "agentlink/AgentVocabulary.h"
#include "platform/Value.h"

namespace orv {

/// What the agent of the active account last said of its work. Sizes in bytes, speeds in bytes a
/// second, times in seconds since 1970. Numbers stay at the ends of their range.
struct AgentProgress {
    // the connection
    std::uint32_t status = 0;
    /// 0 when it is not known since when.
    std::int64_t statusTimestamp = 0;
    /// Backup waits while this network adapter is used.
    bool limitBackup = false;
    /// Empty when it is not known.
    std::string activeAdapter = {};

    // the backup
    /// Whether the agent has said since it began to connect how far the backup is.
    bool isStoreStatusKnown = false;
    bool backupScanning = false;
    std::int32_t scannedFolders = 0;
    std::int32_t scannedFiles = 0;
    std::int32_t totalFiles = 0;
    std::int32_t totalFolders = 0;
    std::int64_t totalBytesForStoring = 0;
    std::int64_t storedBytes = 0;
    /// Left to store.
    std::int64_t totalFilesForStoring = 0;
    std::int32_t bannedFiles = 0;
    std::int64_t nextUploadTimestamp = 0;
    bool backupStoppedDueQuota = false;
    bool serverParsingXML = false;
    std::string infoUrl = {};
    std::string storeWarnMsg = {};
    std::string storeWarnUrl = {};
    std::int32_t uploadSpeed = 0;
    std::int32_t downloadSpeed = 0;
    std::int32_t uploadSpeedMax = 0;
    std::int32_t downloadSpeedMax = 0;
    /// Speed reports until the last store event counts no more.
    std::int32_t storeActivity = 0;

    // the projects
    std::string timeLeft = {};
    std::int64_t syncUploadFiles = 0;
    std::int64_t syncUploadBytes = 0;
    std::int64_t syncDownloadFiles = 0;
    std::int64_t syncDownloadBytes = 0;
    std::int32_t syncQuotaStatus = 0;
    std::int64_t totalProjects = 0;
    std::int64_t totalFilesProjects = 0;
    std::int64_t totalBytesProjects = 0;

    [[nodiscard]] bool is(ConnectionStatus connection) const {
        return status == static_cast<std::uint32_t>(connection);
    }
    /// Of the backup; negative when more is stored than there was to store.
    [[nodiscard]] std::int64_t remainingBytes() const;

    bool operator==(const AgentProgress&) const = default;
};

// Each takes one event of the agent into the record; a key that is missing counts as 0, false or
// empty unless said otherwise. Whose event it is was checked before.

void TakeScanActivity(AgentProgress& progress, const quelm::Dictionary& payload);
void TakeShareStatistics(AgentProgress& progress, const quelm::Dictionary& payload);
void TakeStoreStatus(AgentProgress& progress, const quelm::Dictionary& payload);
void TakeStoreFileStart(AgentProgress& progress, const quelm::Dictionary& payload);
void TakeStoreFileEnd(AgentProgress& progress, const quelm::Dictionary& payload);
void TakeStoreProgress(AgentProgress& progress, const quelm::Dictionary& payload);
void TakeSpeedStatus(AgentProgress& progress, const quelm::Dictionary& payload);
void TakeSyncProgress(AgentProgress& progress, const quelm::Dictionary& payload);
void TakeSyncQuotaStatus(AgentProgress& progress, const quelm::Dictionary& payload);
void TakeProgressInfoUpdate(AgentProgress& progress, const quelm::Dictionary& payload);
void TakeRoutingNetworkAdapter(AgentProgress& progress, const quelm::Dictionary& payload);

}  // namespace orv

#include "pane/status/AgentProgress.h"

#include "agentlink/AgentPayload.h"
#include "foundation/system/Saturating.h"
#include "foundation/texts/Numbers.h"

namespace orv {

namespace {

using quelm::Dictionary;
using quelm::Narrowed;
using quelm::SaturatingDifference;
using quelm::SaturatingSum;

/// How many speed reports a store event counts for.
constexpr std::int32_t storeActivityOfEvent = 10;

std::int32_t intOf(const Dictionary& payload, const char* key) {
    return Narrowed(PayloadNumber(payload, key));
}

bool flagOf(const Dictionary& payload, const char* key) {
    return quelm::IsTrueText(PayloadText(payload, key));
}

void takeStoredBytes(AgentProgress& progress, const Dictionary& payload) {
    progress.totalBytesForStoring = PayloadNumber(payload, keys::totalBytes);
    progress.storedBytes = SaturatingSum(PayloadNumber(payload, keys::storedBytes),
                                         PayloadNumber(payload, keys::totalProgress));
}

void addStoredBytes(AgentProgress& progress, const Dictionary& payload, const char* key) {
    progress.storedBytes = SaturatingSum(progress.storedBytes, PayloadNumber(payload, key));
    progress.storeActivity = storeActivityOfEvent;
}

}  // namespace

std::int64_t AgentProgress::remainingBytes() const {
    return SaturatingDifference(totalBytesForStoring, storedBytes);
}

void TakeScanActivity(AgentProgress& progress, const Dictionary& payload) {
    progress.backupScanning = PayloadText(payload, keys::value) == "1";
    progress.scannedFolders = intOf(payload, keys::foldersScanned);
    progress.scannedFiles = intOf(payload, keys::filesScanned);
}

void TakeShareStatistics(AgentProgress& progress, const Dictionary& payload) {
    progress.totalFiles = intOf(payload, keys::files);
    progress.totalFolders = intOf(payload, keys::folders);
}

void TakeStoreStatus(AgentProgress& progress, const Dictionary& payload) {
    takeStoredBytes(progress, payload);
    progress.isStoreStatusKnown = true;
    progress.totalFilesForStoring = SaturatingDifference(PayloadNumber(payload, keys::totalFiles),
                                                         PayloadNumber(payload, keys::storedFiles));
    progress.bannedFiles = intOf(payload, keys::bannedFiles);
    progress.nextUploadTimestamp = PayloadNumber(payload, keys::nextUploadTimestamp);
    progress.backupStoppedDueQuota = flagOf(payload, keys::backupStoppedQuota);
    progress.serverParsingXML = flagOf(payload, keys::xmlParsing);
    progress.infoUrl = PayloadText(payload, keys::infoUrl);
    progress.storeWarnMsg = PayloadText(payload, keys::warnMessage);
    progress.storeWarnUrl = PayloadText(payload, keys::warnUrl);
}

void TakeStoreFileStart(AgentProgress& progress, const Dictionary& payload) {
    addStoredBytes(progress, payload, keys::startOffset);
}

void TakeStoreFileEnd(AgentProgress& progress, const Dictionary& payload) {
    takeStoredBytes(progress, payload);
}

void TakeStoreProgress(AgentProgress& progress, const Dictionary& payload) {
    addStoredBytes(progress, payload, keys::count);
}

void TakeSpeedStatus(AgentProgress& progress, const Dictionary& payload) {
    progress.uploadSpeed = intOf(payload, keys::output);
    progress.downloadSpeed = intOf(payload, keys::input);
    progress.uploadSpeedMax = intOf(payload, keys::outputMax);
    progress.downloadSpeedMax = intOf(payload, keys::inputMax);
    progress.storeActivity = Narrowed(std::int64_t{progress.storeActivity} - 1);
}

void TakeSyncProgress(AgentProgress& progress, const Dictionary& payload) {
    progress.syncUploadFiles = PayloadNumber(payload, keys::outFiles);
    progress.syncUploadBytes = PayloadNumber(payload, keys::outBytes);
    progress.syncDownloadFiles = PayloadNumber(payload, keys::inFiles);
    progress.syncDownloadBytes = PayloadNumber(payload, keys::inBytes);
}

void TakeSyncQuotaStatus(AgentProgress& progress, const Dictionary& payload) {
    progress.syncQuotaStatus = intOf(payload, keys::status);
}

void TakeProgressInfoUpdate(AgentProgress& progress, const Dictionary& payload) {
    progress.timeLeft = PayloadText(payload, keys::timeLeft);
}

void TakeRoutingNetworkAdapter(AgentProgress& progress, const Dictionary& payload) {
    progress.activeAdapter = PayloadText(payload, keys::description);
    progress.limitBackup = PayloadText(payload, keys::limitBackup) == "1";
}

}  // namespace orv

#include "pane/status/BackupLines.h"

#include <array>
#include <cmath>

#include "foundation/system/LocalizedString.h"
#include "pane/links/LinkAddresses.h"
#include "pane/status/ConnectionLine.h"
#include "widgets/SizeText.h"
#include "widgets/TimeText.h"

namespace orv {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

struct SummaryCauses {
    const AgentProgress& progress;
    const BackupSituation& situation;
};

/// Seconds; -1 without a speed. The largest speed counts, although the present one decides whether
/// there is an estimate.
std::int64_t estimate(const SummaryCauses& causes) {
    const auto& [progress, situation] = causes;
    if (progress.uploadSpeedMax <= 0) return -1;
    const double speed = progress.uploadSpeedMax * situation.bandwidthSafetyFactor;
    const double seconds =
        static_cast<double>(causes.progress.remainingBytes()) / speed +
        static_cast<double>(progress.totalFilesForStoring) * situation.transferOverheadPerFile;
    constexpr double most = 1e15;  // beyond any backup, and within 64 bits
    return std::isfinite(seconds) && std::abs(seconds) < most ? static_cast<std::int64_t>(seconds)
                                                              : -1;
}

std::string nothing(const SummaryCauses&) {
    return {};
}

std::string scanning(const SummaryCauses& causes) {
    const std::int32_t files = causes.progress.scannedFiles;
    if (files < 1) return GetLocalizedString("PrefPane.Scanning", "Scanning folders...");
    return FormatLocalizedString("PrefPane.ScanningIndexing", "Scanning folders (%d files indexed)",
                                 {files});
}

std::string suspended(const SummaryCauses& causes) {
    return FormatLocalizedString("PrefPane.BackupSuspended", "Backup suspended while on %@",
                                 {ActiveAdapterName(causes.progress)});
}

std::string remainingWithEstimate(const SummaryCauses& causes) {
    return FormatLocalizedString("PrefPane.StoreStatusEst", "%@ (%@) remaining",
                                 {orv::FileSizeString(causes.progress.remainingBytes()),
                                  TimeIntervalToString(estimate(causes))});
}

struct SummaryRow {
    bool (*applies)(const SummaryCauses& causes);
    std::string (*text)(const SummaryCauses& causes);
    StatusImage image;
};

// the first that applies is shown
constexpr std::array summaryRows = {
    SummaryRow{[](const SummaryCauses& causes) { return causes.progress.backupScanning; }, scanning,
               StatusImage::Syncing},
    SummaryRow{[](const SummaryCauses& causes) { return causes.progress.serverParsingXML; },
               [](const SummaryCauses&) {
                   return GetLocalizedString("PrefPane.ServerParsingXML",
                                             "Server is calculating backup.");
               },
               StatusImage::Syncing},
    SummaryRow{[](const SummaryCauses& causes) { return causes.progress.backupStoppedDueQuota; },
               [](const SummaryCauses&) {
                   return GetLocalizedString("PrefPane.BackupStoppedDueQuota",
                                             "Backup Stopped! Storage Quota exceeded.");
               },
               StatusImage::PermissionViolation},
    SummaryRow{[](const SummaryCauses& causes) { return causes.progress.totalFolders == 0; },
               nothing, StatusImage::None},
    SummaryRow{[](const SummaryCauses& causes) {
                   return !causes.progress.is(ConnectionStatus::Connected);
               },
               nothing, StatusImage::None},
    SummaryRow{[](const SummaryCauses& causes) { return causes.situation.offlineIncomplete; },
               [](const SummaryCauses&) {
                   return GetLocalizedString("PrefPane.VolumeOfflineIncomplete",
                                             "Volume with incomplete backup is offline");
               },
               StatusImage::PermissionViolation},
    SummaryRow{[](const SummaryCauses& causes) { return causes.progress.remainingBytes() < 1; },
               [](const SummaryCauses&) {
                   return GetLocalizedString("PrefPane.BackupComplete", "Backup Complete");
               },
               StatusImage::InSync},
    SummaryRow{[](const SummaryCauses& causes) { return causes.progress.limitBackup; }, suspended,
               StatusImage::Syncing},
    SummaryRow{[](const SummaryCauses& causes) {
                   return causes.progress.storeActivity > 0 && causes.progress.uploadSpeed > 0;
               },
               remainingWithEstimate, StatusImage::Syncing},
    SummaryRow{[](const SummaryCauses&) { return true; },
               [](const SummaryCauses& causes) {
                   return FormatLocalizedString(
                       "PrefPane.StoreStatus", "%@ remaining",
                       {orv::FileSizeString(causes.progress.remainingBytes())});
               },
               StatusImage::Syncing},
};

const SummaryRow& summaryRow(const SummaryCauses& causes) {
    for (const SummaryRow& row : summaryRows) {
        if (row.applies(causes)) return row;
    }
    return summaryRows.back();
}

std::string summaryOf(const AgentProgress& progress) {
    if (progress.totalFolders != 0) {
        return FormatLocalizedString("PrefPane.BackupInfo",
                                     "%d files and %d folders in backup (%@)",
                                     {progress.totalFiles, progress.totalFolders,
                                      orv::FileSizeString(progress.totalBytesForStoring)});
    }
    if (progress.backupScanning || progress.serverParsingXML) {
        return GetLocalizedString("PrefPane.SettingUpBackup", "Setting up backup");
    }
    return GetLocalizedString("PrefPane.NoBackup", "No backup configured");
}

LinkedText invitation() {
    return WithLinkedSuffix(
        "", GetLocalizedString("PrefPane.SelectFolders", "Select folders for backup..."), 0, 0,
        links::backupConfiguration);
}

}  // namespace

BackupLines ComposeBackupLines(const AgentProgress& progress, const BackupSituation& situation) {
    if (!situation.isWanted()) return {};
    const SummaryCauses causes{progress, situation};
    const SummaryRow& row = summaryRow(causes);
    BackupLines lines{.summary = summaryOf(progress),
                      .state = StatusLine{{row.text(causes)}, row.image}};
    const bool isUnconfigured =
        progress.totalFolders == 0 && !progress.backupScanning && !progress.serverParsingXML;
    if (isUnconfigured && !situation.policyControlsBackup) lines.state->text = invitation();
    return lines;
}

}  // namespace orv

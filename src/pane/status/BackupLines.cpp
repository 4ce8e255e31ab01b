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

struct Causes {
    const AgentProgress& progress;
    const BackupSituation& situation;
};

/// Seconds; -1 without a speed. The largest speed counts, although the present one decides whether
/// there is an estimate.
std::int64_t estimate(const Causes& causes) {
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

std::string nothing(const Causes&) {
    return {};
}

std::string scanning(const Causes& causes) {
    const std::int32_t files = causes.progress.scannedFiles;
    if (files < 1) return GetLocalizedString("PrefPane.Scanning", "Scanning folders...");
    return FormatLocalizedString("PrefPane.ScanningIndexing", "Scanning folders (%d files indexed)",
                                 {files});
}

std::string suspended(const Causes& causes) {
    return FormatLocalizedString("PrefPane.BackupSuspended", "Backup suspended while on %@",
                                 {ActiveAdapterName(causes.progress)});
}

std::string remainingWithEstimate(const Causes& causes) {
    return FormatLocalizedString("PrefPane.StoreStatusEst", "%@ (%@) remaining",
                                 {orv::FileSizeString(causes.progress.remainingBytes()),
                                  TimeIntervalToString(estimate(causes))});
}

struct Row {
    bool (*applies)(const Causes& causes);
    std::string (*text)(const Causes& causes);
    StatusImage image;
};

// the first that applies is shown
constexpr std::array rows = {
    Row{[](const Causes& causes) { return causes.progress.backupScanning; }, scanning,
        StatusImage::Syncing},
    Row{[](const Causes& causes) { return causes.progress.serverParsingXML; },
        [](const Causes&) {
            return GetLocalizedString("PrefPane.ServerParsingXML", "Server is calculating backup.");
        },
        StatusImage::Syncing},
    Row{[](const Causes& causes) { return causes.progress.backupStoppedDueQuota; },
        [](const Causes&) {
            return GetLocalizedString("PrefPane.BackupStoppedDueQuota",
                                      "Backup Stopped! Storage Quota exceeded.");
        },
        StatusImage::PermissionViolation},
    Row{[](const Causes& causes) { return causes.progress.totalFolders == 0; }, nothing,
        StatusImage::None},
    Row{[](const Causes& causes) { return !causes.progress.is(ConnectionStatus::Connected); },
        nothing, StatusImage::None},
    Row{[](const Causes& causes) { return causes.situation.offlineIncomplete; },
        [](const Causes&) {
            return GetLocalizedString("PrefPane.VolumeOfflineIncomplete",
                                      "Volume with incomplete backup is offline");
        },
        StatusImage::PermissionViolation},
    Row{[](const Causes& causes) { return causes.progress.remainingBytes() < 1; },
        [](const Causes&) {
            return GetLocalizedString("PrefPane.BackupComplete", "Backup Complete");
        },
        StatusImage::InSync},
    Row{[](const Causes& causes) { return causes.progress.limitBackup; }, suspended,
        StatusImage::Syncing},
    Row{[](const Causes& causes) {
            return causes.progress.storeActivity > 0 && causes.progress.uploadSpeed > 0;
        },
        remainingWithEstimate, StatusImage::Syncing},
    Row{[](const Causes&) { return true; },
        [](const Causes& causes) {
            return FormatLocalizedString("PrefPane.StoreStatus", "%@ remaining",
                                         {orv::FileSizeString(causes.progress.remainingBytes())});
        },
        StatusImage::Syncing},
};

const Row& rowOf(const Causes& causes) {
    for (const Row& row : rows) {
        if (row.applies(causes)) return row;
    }
    return rows.back();
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
    const Causes causes{progress, situation};
    const Row& row = rowOf(causes);
    BackupLines lines{.summary = summaryOf(progress),
                      .state = StatusLine{{row.text(causes)}, row.image}};
    const bool isUnconfigured =
        progress.totalFolders == 0 && !progress.backupScanning && !progress.serverParsingXML;
    if (isUnconfigured && !situation.policyControlsBackup) lines.state->text = invitation();
    return lines;
}

}  // namespace orv

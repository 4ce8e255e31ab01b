#include "pane/status/Headline.h"

#include <array>

#include "foundation/system/LocalizedString.h"
#include "foundation/system/Saturating.h"
#include "pane/links/LinkAddresses.h"
#include "widgets/MomentText.h"
#include "widgets/SizeText.h"

namespace orv {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

constexpr std::int64_t secondsOfDay = 86'400;

struct Causes {
    const AgentProgress& progress;
    const StatusInputs& inputs;
    const std::string& agentError;

    [[nodiscard]] bool is(ConnectionStatus status) const { return progress.is(status); }
    [[nodiscard]] bool isBackupWanted() const { return inputs.backup.isWanted(); }
    [[nodiscard]] bool hasFolders() const { return progress.totalFolders != 0; }
    /// Whether the agent has said what there is to back up and how far it is.
    [[nodiscard]] bool isReported() const { return hasFolders() && progress.isStoreStatusKnown; }
    [[nodiscard]] std::int64_t remaining() const { return progress.remainingBytes(); }
};

/// A text and what can be done about it; both may be empty.
struct Message {
    std::string text;
    std::string remedy = {};
    std::string address = {};
};

struct HeadlineRow {
    bool (*applies)(const Causes& causes);
    Message (*message)(const Causes& causes);
    const char* image;
};

bool isNotConnected(const Causes& causes) {
    return !causes.is(ConnectionStatus::Connected);
}

Message connecting(const Causes&) {
    return {GetLocalizedString("Headline.Connecting", "Connecting to the backup service...")};
}

Message lowDiskSpace(const Causes&) {
    return {GetLocalizedString("Headline.LowDiskSpace",
                               "Nothing is backed up: this computer has too little free disk "
                               "space. Free some, then connect again."),
            GetLocalizedString("Headline.Connect", "Connect"), links::connect};
}

Message waitingToReconnect(const Causes& causes) {
    const std::string text = GetLocalizedString(
        "Headline.WaitingToReconnect", "Nothing is backed up while the service is out of reach.");
    return {causes.agentError.empty() ? text : text + " " + causes.agentError};
}

Message offline(const Causes& causes) {
    const std::string text =
        GetLocalizedString("Headline.Offline", "Not connected, so nothing is backed up.");
    return {causes.agentError.empty() ? text : text + " " + causes.agentError,
            GetLocalizedString("Headline.Connect", "Connect"), links::connect};
}

Message quotaExceeded(const Causes& causes) {
    return {GetLocalizedString("Headline.Quota", "Backup has stopped: the storage is full."),
            GetLocalizedString("Headline.ShowStorage", "Show storage"),
            links::Dashboard(causes.inputs.agentId)};
}

Message volumeAway(const Causes& causes) {
    std::string names;
    for (const std::string& name : causes.inputs.offlineVolumes)
        names += names.empty() ? name : ", " + name;
    return {FormatLocalizedString("Headline.VolumeAway",
                                  "The backup is incomplete: please attach %@.", {names}),
            GetLocalizedString("Headline.ShowFolders", "Show folders"), links::backupTab};
}

Message noFolders(const Causes& causes) {
    if (causes.inputs.backup.policyControlsBackup) {
        return {GetLocalizedString("Headline.NoFoldersYet",
                                   "Your organisation has not chosen any folders to back up yet.")};
    }
    return {GetLocalizedString("Headline.NoFolders",
                               "No folders are chosen, so nothing is backed "
                               "up."),
            GetLocalizedString("Headline.ChooseFolders", "Choose folders"),
            links::backupConfiguration};
}

Message nothingReported(const Causes&) {
    return {GetLocalizedString("Headline.NothingReported",
                               "The backup service has not said yet how far it is.")};
}

Message networkForbids(const Causes& causes) {
    const std::string& adapter = causes.progress.activeAdapter;
    return {FormatLocalizedString(
                "Headline.NetworkForbids", "Backup waits: it is not allowed over %@. %@ remain.",
                {adapter.empty() ? GetLocalizedString("Headline.ThisNetwork", "the network in use")
                                 : adapter,
                 orv::FileSizeString(causes.remaining())}),
            GetLocalizedString("Headline.ShowNetwork", "Show network"), links::bandwidthTab};
}

Message backingUp(const Causes& causes) {
    return {FormatLocalizedString("Headline.BackingUp", "Backing up: %@ remain.",
                                  {orv::FileSizeString(causes.remaining())})};
}

Message serverWarning(const Causes& causes) {
    const AgentProgress& progress = causes.progress;
    const std::string& address =
        progress.storeWarnUrl.empty() ? progress.infoUrl : progress.storeWarnUrl;
    if (address.empty()) return {progress.storeWarnMsg};
    return {progress.storeWarnMsg, GetLocalizedString("Headline.Details", "Details"), address};
}

Message refusedFiles(const Causes& causes) {
    const std::int32_t count = causes.progress.bannedFiles;
    return {count == 1 ? GetLocalizedString("Headline.RefusedFile",
                                            "Backed up but for one file, which the service "
                                            "refuses.")
                       : FormatLocalizedString("Headline.RefusedFiles",
                                               "Backed up but for %d files, which the service "
                                               "refuses.",
                                               {count})};
}

Message projectStorage(const Causes& causes) {
    return {GetLocalizedString("Headline.ProjectStorage",
                               "Projects are not stored: there is a problem with the storage."),
            GetLocalizedString("Headline.ShowStorage", "Show storage"),
            links::Dashboard(causes.inputs.agentId)};
}

Message violations(const Causes&) {
    return {GetLocalizedString("Headline.Violations",
                               "Some changes in your projects are not allowed and are not synced."),
            GetLocalizedString("Headline.ShowProjects", "Show projects"), links::projectsTab};
}

// the first that applies
constexpr std::array headlineRows = {
    HeadlineRow{[](const Causes& c) {
                    return c.is(ConnectionStatus::Connecting) || c.is(ConnectionStatus::LoggingIn);
                },
                connecting, "waiting"},
    HeadlineRow{[](const Causes& c) { return c.is(ConnectionStatus::NoDiskSpace); }, lowDiskSpace,
                "warning"},
    HeadlineRow{[](const Causes& c) { return c.is(ConnectionStatus::WaitingToReconnect); },
                waitingToReconnect, "offline"},
    HeadlineRow{isNotConnected, offline, "offline"},
    HeadlineRow{[](const Causes& c) { return c.progress.backupStoppedDueQuota; }, quotaExceeded,
                "permissionViolation"},
    HeadlineRow{[](const Causes& c) { return c.isBackupWanted() && c.progress.backupScanning; },
                [](const Causes&) -> Message {
                    return {
                        GetLocalizedString("Headline.Scanning", "Looking for what has changed...")};
                },
                "syncing"},
    HeadlineRow{[](const Causes& c) { return c.isBackupWanted() && c.progress.serverParsingXML; },
                [](const Causes&) -> Message {
                    return {GetLocalizedString("Headline.ServerParses",
                                               "The service works out what is left to back up...")};
                },
                "syncing"},
    HeadlineRow{[](const Causes& c) {
                    return c.isBackupWanted() && c.hasFolders() &&
                           c.inputs.backup.offlineIncomplete;
                },
                volumeAway, "permissionViolation"},
    HeadlineRow{[](const Causes& c) {
                    return c.isBackupWanted() && !c.isReported() &&
                           (c.hasFolders() || c.inputs.backup.hasBackupPaths);
                },
                nothingReported, "waiting"},
    HeadlineRow{[](const Causes& c) { return c.isBackupWanted() && !c.hasFolders(); }, noFolders,
                "warning"},
    HeadlineRow{[](const Causes& c) {
                    return c.isBackupWanted() && c.remaining() > 0 && c.progress.limitBackup;
                },
                networkForbids, "waiting"},
    HeadlineRow{[](const Causes& c) { return c.isBackupWanted() && c.remaining() > 0; }, backingUp,
                "syncing"},
    HeadlineRow{[](const Causes& c) { return !c.progress.storeWarnMsg.empty(); }, serverWarning,
                "warning"},
    HeadlineRow{[](const Causes& c) { return c.isBackupWanted() && c.progress.bannedFiles > 0; },
                refusedFiles, "warning"},
    HeadlineRow{
        [](const Causes& c) { return c.inputs.syncEnabled && c.progress.syncQuotaStatus != 0; },
        projectStorage, "permissionViolation"},
    HeadlineRow{[](const Causes& c) { return c.inputs.syncEnabled && c.inputs.violations > 0; },
                violations, "permissionViolation"},
    HeadlineRow{
        [](const Causes& c) { return c.inputs.syncEnabled && !c.progress.timeLeft.empty(); },
        [](const Causes&) -> Message {
            return {GetLocalizedString("Headline.Syncing", "Your projects are being synced.")};
        },
        "syncing"},
    HeadlineRow{[](const Causes& c) { return c.isBackupWanted(); },
                [](const Causes&) -> Message {
                    return {GetLocalizedString("Headline.Complete", "Everything is backed up.")};
                },
                "in-sync"},
    HeadlineRow{[](const Causes& c) { return c.inputs.syncEnabled; },
                [](const Causes&) -> Message {
                    return {GetLocalizedString("Headline.Synced", "Your projects are up to date.")};
                },
                "in-sync"},
    HeadlineRow{[](const Causes&) { return true; },
                [](const Causes&) -> Message {
                    return {GetLocalizedString("Headline.NothingToDo",
                                               "Neither backup nor projects are switched on.")};
                },
                "waiting"},
};

const HeadlineRow& headlineRow(const Causes& causes) {
    for (const HeadlineRow& row : headlineRows) {
        if (row.applies(causes)) return row;
    }
    return headlineRows.back();
}

/// How many days have passed without a complete backup; none while that is no reason to warn.
std::optional<std::int64_t> daysOverdue(const StatusInputs& inputs, std::int64_t now) {
    if (!inputs.lastComplete || inputs.warningDays <= 0) return std::nullopt;
    const std::int64_t days = quelm::SaturatingDifference(now, *inputs.lastComplete) / secondsOfDay;
    return days >= inputs.warningDays ? std::optional(days) : std::nullopt;
}

std::string overdueText(std::int64_t days) {
    return days == 1 ? GetLocalizedString("Headline.OverdueDay", "No complete backup for a day. ")
                     : FormatLocalizedString("Headline.Overdue",
                                             "No complete backup for %ld days. ", {days});
}

}  // namespace

bool IsBackupComplete(const AgentProgress& progress, const StatusInputs& inputs) {
    static const std::string noError;
    const Causes causes{progress, inputs, noError};
    return causes.isBackupWanted() && causes.is(ConnectionStatus::Connected) &&
           causes.isReported() && causes.remaining() < 1 && !progress.backupScanning &&
           !progress.serverParsingXML && !progress.backupStoppedDueQuota &&
           !inputs.backup.offlineIncomplete;
}

Headline ComposeHeadline(const AgentProgress& progress, const StatusInputs& inputs,
                         const std::string& agentError, std::int64_t now) {
    const Causes causes{progress, inputs, agentError};
    const HeadlineRow& row = headlineRow(causes);
    const Message message = row.message(causes);
    Headline headline{{message.text}, row.image};
    const auto days = causes.isBackupWanted() ? daysOverdue(inputs, now) : std::nullopt;
    if (days && !IsBackupComplete(progress, inputs)) {
        headline.text.text = overdueText(*days) + headline.text.text;
        headline.image = "warning";
    }
    if (!message.remedy.empty()) {
        headline.text =
            WithLinkedSuffix(headline.text.text, "  " + message.remedy, 2, 0, message.address);
    }
    return headline;
}

std::string LastBackupText(const StatusInputs& inputs, std::int64_t now) {
    if (!inputs.backup.isWanted()) return {};
    if (!inputs.lastComplete) {
        return GetLocalizedString("Headline.NeverComplete", "There was no complete backup yet.");
    }
    return FormatLocalizedString("Headline.LastComplete", "Last complete backup: %@",
                                 {MomentText(*inputs.lastComplete, now)});
}

}  // namespace orv

#pragma once

#include <optional>

#include "pane/status/AgentProgress.h"
#include "pane/status/StatusLine.h"

namespace orv {

/// What the backup lines depend on beside the agent's progress.
struct BackupSituation {
    bool backupEnabled = false;
    /// Whether any folder is selected.
    bool hasBackupPaths = false;
    /// Whether a selected folder that is not backed up is on a volume that is not there.
    bool offlineIncomplete = false;
    /// Whether a policy decides what is backed up, so that the person need not choose.
    bool policyControlsBackup = false;
    /// Tuning of the estimate: seconds a file, and the part of the speed that counts.
    double transferOverheadPerFile = 0;
    double bandwidthSafetyFactor = 1;
    /// Whether anything is to be backed up.
    [[nodiscard]] bool isWanted() const { return backupEnabled || hasBackupPaths; }
    bool operator==(const BackupSituation&) const = default;
};

struct BackupLines {
    std::string summary;
    /// None leaves what is shown.
    std::optional<StatusLine> state;
    bool operator==(const BackupLines&) const = default;
};

/// What is backed up, what remains, how long it will take, why it stopped.
[[nodiscard]] BackupLines ComposeBackupLines(const AgentProgress& progress,
                                             const BackupSituation& situation);

}  // namespace orv

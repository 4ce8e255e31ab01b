#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "pane/status/BackupLines.h"
#include "pane/status/ProjectLines.h"

namespace orv {

/// What the status depends on beside what the agent says: the account's settings and what is on
/// this computer.
struct StatusInputs {
    /// Of the active account.
    std::string agentId = "1";
    std::string fullName = {};
    BackupSituation backup = {};
    bool syncEnabled = false;
    std::int64_t violations = 0;
    /// Files that the user has locked.
    std::int64_t locks = 0;
    /// The last components of the volumes that are away and have folders to back up.
    std::vector<std::string> offlineVolumes = {};
    /// Seconds since 1970; none when the backup was never seen complete.
    std::optional<std::int64_t> lastComplete = {};
    /// Without a complete backup for so long there is a warning; 0 for never.
    std::int32_t warningDays = 3;
    bool operator==(const StatusInputs&) const = default;
};

}  // namespace orv

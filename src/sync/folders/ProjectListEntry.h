#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sync/SyncEnumerations.h"

namespace quelm::sync {

/// A project folder on disk.
struct SProjectListEntry {
    EFsType fsType = FS_TYPE_REGULAR;
    ESyncRootType rootType = MASTER_PROJECT_FOLDER;
    /// Empty for the master project folder.
    std::string projectId;
    /// Absolute.
    std::string path;
    /// The default (master) folder.
    bool isDefault = false;
    bool operator==(const SProjectListEntry&) const = default;
};

// The lines of a project list file, without their line feed: docs/projects.md.

/// Whether a file that begins with this line has the current format, "RM:ID:PATH".
[[nodiscard]] bool IsCurrentProjectLine(std::string_view line);
/// None for a line that holds no entry.
[[nodiscard]] std::optional<SProjectListEntry> ParseProjectLine(std::string_view line);
/// A line of the old format, "ID:PATH", taken as a folder in the master project folder.
[[nodiscard]] std::optional<SProjectListEntry> ParseOldProjectLine(std::string_view line);
/// In the current format; none for an entry that would be read as others: one with a line feed, or
/// with a colon in its id.
[[nodiscard]] std::optional<std::string> ProjectLineOf(const SProjectListEntry& entry);

}  // namespace quelm::sync

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orv {

// Folders whose backups are to be removed from storage, in a file that the panel hands them to the
// agent with. A folder is new until the agent takes it, and stays in the file until the agent
// commits; one that is added again meanwhile survives the commit. Every function is one step under
// the file's exclusive lock. A file that cannot be parsed counts as empty.

/// False only when the file cannot be opened. A path that no property list can hold is left out
/// and logged.
bool AddFoldersToUnstore(const std::string& file, const std::vector<std::string>& paths);
bool RemoveFoldersToUnstore(const std::string& file, const std::vector<std::string>& paths);

/// Takes all of them, also those taken before and not committed; none when the file cannot be
/// opened.
[[nodiscard]] std::optional<std::vector<std::string>> GetFoldersToUnstore(const std::string& file);

/// Removes those that were taken; false when the file cannot be opened.
bool CommitUnstoreFolders(const std::string& file);

}  // namespace orv

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "foundation/files/StatusCode.h"

namespace quelm::os {

/// Folders that removing must spare: the configuration folder and the accounts' folders.
struct RemovalRules {
    std::vector<std::string> protectedFolders;
    /// Where not empty: the canonical path of a folder in which, once links are resolved, what is
    /// removed must lie.
    std::string onlyWithin = {};
};

enum class RemovalIntent {
    /// Anything but the protected folders, what lies in them and what they lie in.
    UserData,
    /// Exactly one of the protected folders.
    ProtectedFolder,
};

struct RemovalReport {
    struct Refusal {
        std::string path;
        std::string reason;
    };

    /// SUCCESS when all is gone; else why the first thing that is left is left.
    EStatusCode status = EStatusCode::SUCCESS;
    /// Files, links and folders that were removed.
    std::uint64_t removed = 0;
    /// What was left on purpose or could not be removed, at most the first 100.
    std::vector<Refusal> refused;
};

/// Removes a folder with everything in it; the only function that removes user data.
///
/// Nothing is touched when the path is relative, "/", the home folder, a folder that one of them
/// or a protected folder lies in, a mount point, a link, or a protected folder that was not meant.
/// Below the folder no link is followed and no other file system entered, also when somebody
/// exchanges folders for links meanwhile. What cannot be removed stays, the rest goes. Every
/// refusal is logged.
RemovalReport RemoveFolderSafely(const std::string& path, const RemovalRules& rules,
                                 RemovalIntent intent = RemovalIntent::UserData);

/// The process's rules, which `RecursiveRemoveFolder` obeys. Set at the start of the program and
/// when the accounts change, on the main thread.
void SetRemovalRules(RemovalRules rules);
[[nodiscard]] const RemovalRules& ProcessRemovalRules();

/// `RemoveFolderSafely` of user data under the process's rules.
EStatusCode RecursiveRemoveFolder(const std::string& path);

}  // namespace quelm::os

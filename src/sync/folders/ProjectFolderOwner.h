#pragma once

#include <set>
#include <string>

#include "foundation/files/StatusCode.h"

namespace quelm::sync {

// Who owns a folder as a sync root. Each reads the disk: not for the main thread of a program with
// windows.

/// The owner's id, or one of PROJECT_FOLDER_RECURSION, _NO_ID, _NOT_EMPTY, or "" for a folder that
/// is free. Several may own it: then `userId` if it is one of them, else the first by name. A
/// folder that cannot be listed counts as not empty.
[[nodiscard]] std::string FindProjectFolderOwner(const std::string& userId,
                                                 const std::string& folder);

/// The same, and where the answer is the user, the list files of others are deleted.
std::string DetectProjectFolderOwner(const std::string& userId, const std::string& folder);

/// Deletes the list files of every owner and makes the cache folder where it is missing. SUCCESS
/// is 0; a cache folder that is a link is left alone and fails.
os::EStatusCode TakeProjectFolderOwnership(const std::string& folder);

enum EProjectFolderStatus : int {
    /// The cache folder cannot be listed.
    PROJECT_FOLDER_UNKNOWN = 0,
    PROJECT_FOLDER_SEVERAL_LISTS = 1,
    PROJECT_FOLDER_NO_LIST = 2,
    PROJECT_FOLDER_LOADED = 3,
};

struct SProjectFolderInfo {
    EProjectFolderStatus status = PROJECT_FOLDER_UNKNOWN;
    // Filled when it is loaded.
    std::string ownerId;
    std::set<std::string> projectIds;
};

/// What the one list file of a folder says.
[[nodiscard]] SProjectFolderInfo LoadProjectFolderInfo(const std::string& folder,
                                                       const std::string& masterFolder);

}  // namespace quelm::sync

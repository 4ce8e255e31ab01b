#include "sync/folders/ProjectFolderOwner.h"

#include <algorithm>
#include <cerrno>
#include <optional>

#include "foundation/files/Existence.h"
#include "foundation/files/Folders.h"
#include "foundation/paths/ParsedPath.h"
#include "foundation/paths/Paths.h"
#include "sync/folders/ProjectCacheFolder.h"
#include "sync/folders/ProjectFolderNames.h"
#include "sync/folders/ProjectListFile.h"

namespace quelm::sync {

namespace {

using Names = std::set<std::string>;

std::string ownerOf(const std::string& listFile) {
    return listFile.substr(projectListPrefix.size());
}

bool liesInSyncRoot(const std::string& folder) {
    std::string_view above = RemoveLastSlashFromPath(folder);
    while (!above.empty() && above != "/") {
        above = RemoveLastPathComponent(above);
        if (IsFolder(ProjectCacheFolder::pathIn(std::string(above)))) return true;
    }
    return false;
}

bool hasVisibleEntry(const std::string& folder) {
    const auto handle = os::FolderHandle::open(folder + "/.");
    const auto entries = handle ? handle->entries() : std::nullopt;
    if (!entries) return errno != ENOENT && errno != ENOTDIR;
    return std::ranges::any_of(
        *entries, [](const auto& entry) { return !CParsedPath(entry.name, 0).IsHidden(); });
}

std::string ownerAmong(const Names& listFiles, const std::string& userId) {
    if (listFiles.empty()) return PROJECT_FOLDER_NO_ID;
    return listFiles.contains(projectListPrefix + userId) ? userId : ownerOf(*listFiles.begin());
}

/// The owner; where list files tell it, with these and their folder.
struct Verdict {
    std::string owner;
    std::optional<ProjectCacheFolder> cache = {};
    Names listFiles = {};
};

Verdict judge(const std::string& userId, const std::string& folder) {
    if (liesInSyncRoot(folder)) return {PROJECT_FOLDER_RECURSION};
    auto cache = ProjectCacheFolder::open(folder);
    auto names = cache ? cache->listFiles() : std::nullopt;
    if (!names) return {hasVisibleEntry(folder) ? PROJECT_FOLDER_NOT_EMPTY : EmptyString};
    std::string owner = ownerAmong(*names, userId);
    return {std::move(owner), std::move(cache), std::move(*names)};
}

os::EStatusCode removeAll(const ProjectCacheFolder& cache, const Names& names) {
    auto status = os::EStatusCode::SUCCESS;
    for (const std::string& name : names) {
        if (!cache.remove(name) && errno != ENOENT) status = os::StatusCodeForErrno(errno);
    }
    return status;
}

}  // namespace

std::string FindProjectFolderOwner(const std::string& userId, const std::string& folder) {
    return judge(userId, folder).owner;
}

std::string DetectProjectFolderOwner(const std::string& userId, const std::string& folder) {
    Verdict verdict = judge(userId, folder);
    if (verdict.listFiles.erase(projectListPrefix + userId) > 0) {
        static_cast<void>(removeAll(*verdict.cache, verdict.listFiles));
    }
    return verdict.owner;
}

os::EStatusCode TakeProjectFolderOwnership(const std::string& folder) {
    const auto cache = ProjectCacheFolder::open(folder);
    if (!cache && errno == ENOENT) return os::CreateFolder(ProjectCacheFolder::pathIn(folder));
    const auto names = cache ? cache->listFiles() : std::nullopt;
    return names ? removeAll(*cache, *names) : os::StatusCodeForErrno(errno);
}

SProjectFolderInfo LoadProjectFolderInfo(const std::string& folder,
                                         const std::string& masterFolder) {
    const auto names = ProjectCacheFolder::listFilesIn(folder);
    if (!names) return {};
    if (names->empty()) return {.status = PROJECT_FOLDER_NO_LIST, .ownerId = {}, .projectIds = {}};
    if (names->size() > 1)
        return {.status = PROJECT_FOLDER_SEVERAL_LISTS, .ownerId = {}, .projectIds = {}};
    SProjectFolderInfo info{PROJECT_FOLDER_LOADED, ownerOf(*names->begin()), {}};
    CProjectListFile list(info.ownerId, ProjectCacheFolder::pathIn(folder), masterFolder);
    list.Load();
    for (const SProjectListEntry& entry : list.entries()) {
        if (!entry.projectId.empty()) info.projectIds.insert(entry.projectId);
    }
    return info;
}

}  // namespace quelm::sync

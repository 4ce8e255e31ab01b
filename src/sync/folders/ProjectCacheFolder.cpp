#include "sync/folders/ProjectCacheFolder.h"

#include "foundation/paths/Paths.h"
#include "sync/folders/ProjectFolderNames.h"

namespace quelm::sync {

std::string ProjectCacheFolder::pathIn(const std::string& folder) {
    return std::string(RemoveLastSlashFromPath(folder)) + "/" + FILE_CACHE_FOLDER_NAME;
}

std::optional<ProjectCacheFolder> ProjectCacheFolder::open(const std::string& folder) {
    auto handle = os::FolderHandle::open(pathIn(folder));
    if (!handle) return std::nullopt;
    return ProjectCacheFolder(std::move(*handle));
}

std::optional<std::set<std::string>> ProjectCacheFolder::listFiles() const {
    const auto entries = handle_.entries();
    if (!entries) return std::nullopt;
    std::set<std::string> names;
    for (const auto& entry : *entries) {
        if (entry.name.starts_with(projectListPrefix)) names.insert(entry.name);
    }
    return names;
}

std::optional<std::set<std::string>> ProjectCacheFolder::listFilesIn(const std::string& folder) {
    const auto cache = open(folder);
    return cache ? cache->listFiles() : std::nullopt;
}

}  // namespace quelm::sync

#include "sync/folders/ProjectFolderWipe.h"

#include <algorithm>
#include <array>
#include <set>

#include "foundation/files/Existence.h"
#include "foundation/files/Filenames.h"
#include "foundation/files/FolderHandle.h"
#include "foundation/files/SafeRemoval.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/Log.h"
#include "sync/folders/ProjectCacheFolder.h"
#include "sync/folders/ProjectFolderNames.h"
#include "sync/folders/ProjectListFile.h"

namespace quelm::sync {

namespace {

bool hasListFileOf(const std::string& userId, const std::string& folder) {
    const auto names = ProjectCacheFolder::listFilesIn(folder);
    return names && names->contains(projectListPrefix + userId);
}

class Wipe {
 public:
    Wipe(const std::string& userId, const std::string& configurationPath,
         const std::string& masterFolder)
        : userId_(userId),
          masterFolder_(GetAbsolutePath(masterFolder)),
          rules_(os::ProcessRemovalRules()) {
        if (!configurationPath.empty()) rules_.protectedFolders.push_back(configurationPath);
    }

    EWipeResult run() {
        if (!IsNameTaken(masterFolder_)) return WIPE_DONE;
        CProjectListFile list(userId_, ProjectCacheFolder::pathIn(masterFolder_), masterFolder_);
        if (!IsPlainFilename(projectListPrefix + userId_) ||
            !hasListFileOf(userId_, masterFolder_) || !list.Load()) {
            LogError("No project folder was removed: " + masterFolder_ +
                     " has no readable list of this user's projects.");
            return WIPE_FAILED;
        }
        bool allGone = true;
        for (const SProjectListEntry& entry : list.entries()) {
            if (!entry.projectId.empty()) allGone &= remove(entry);
        }
        if (!allGone) return WIPE_FAILED;
        return holdsOnlySyncFolders() ? WIPE_FOLDER_REMAINS : WIPE_DONE;
    }

 private:
    /// Whether the project's folder is gone.
    bool remove(const SProjectListEntry& entry) {
        if (!IsNameTaken(entry.path)) return true;
        os::RemovalRules rules = rules_;
        rules.onlyWithin = placeOf(entry);
        if (rules.onlyWithin.empty()) {
            LogError("A project folder was not removed, because it is not this user's: " +
                     entry.path);
            return false;
        }
        return os::RemoveFolderSafely(entry.path, rules).status == os::EStatusCode::SUCCESS;
    }

    /// The folder in which the project's must lie; empty when the entry names no folder of ours.
    [[nodiscard]] std::string placeOf(const SProjectListEntry& entry) const {
        if (entry.rootType == MASTER_PROJECT_FOLDER) return masterFolder_;
        const std::string canonical = GetAbsolutePath(entry.path);
        const bool isPlain = canonical == RemoveLastSlashFromPath(entry.path);
        if (!isPlain || !hasListFileOf(userId_, canonical)) return {};
        const auto parent = RemoveLastPathComponent(canonical);
        return parent.empty() ? "/" : std::string(parent);
    }

    /// Whether the master folder holds nothing but hidden folders of this user's sync.
    [[nodiscard]] bool holdsOnlySyncFolders() const {
        const std::array own = {FILE_CACHE_FOLDER_NAME, IMPORT_FOLDER_NAME, TRASH_FOLDER_NAME};
        const auto folder = os::FolderHandle::open(masterFolder_);
        const auto entries = folder ? folder->entries() : std::nullopt;
        const auto isOwn = [&own](const auto& entry) {
            return entry.isFolder && std::ranges::find(own, entry.name) != own.end();
        };
        const auto lists = ProjectCacheFolder::listFilesIn(masterFolder_);
        if (entries && std::ranges::all_of(*entries, isOwn) && lists && lists->size() == 1) {
            return true;
        }
        LogInfo(masterFolder_ +
                " stays, because something else than this user's projects is in it.");
        return false;
    }

    std::string userId_;
    std::string masterFolder_;
    os::RemovalRules rules_;
};

}  // namespace

EWipeResult WipeProjectFolders(const std::string& userId, const std::string& configurationPath,
                               const std::string& masterFolder) {
    return Wipe(userId, configurationPath, masterFolder).run();
}

}  // namespace quelm::sync

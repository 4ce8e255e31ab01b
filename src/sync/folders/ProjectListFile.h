#pragma once

#include <string>
#include <vector>

#include "sync/folders/ProjectListEntry.h"

namespace quelm::sync {

/// The project folders that one user has on this computer, from the file "project_list_USER" in
/// the cache folder of a sync root. No file is open between calls. Any thread, one at a time.
class CProjectListFile {
 public:
    using Entries = std::vector<SProjectListEntry>;

    /// `masterFolder` is the user's master project folder, for files of the old format.
    CProjectListFile(std::string path, std::string masterFolder);
    CProjectListFile(const std::string& userId, const std::string& cacheFolder,
                     std::string masterFolder);

    /// Whether the path leads to a regular file.
    [[nodiscard]] bool Exists() const;
    /// Deletes the file and forgets the entries; whether the file is gone.
    bool Discard();
    /// Reads the file unless it was read already. False, with no entries, when that is not
    /// possible; lines that hold no entry are skipped.
    bool Load();
    /// Rewrites the file. What no line can hold is left out, with a line in the log; a failure
    /// leaves the file as it was or cut.
    void Store() const;

    /// Adds an entry without an id unless there is one of the same path.
    void AddProjectFolder(EFsType fsType, ESyncRootType rootType, const std::string& path,
                          bool isDefault);
    /// The first with that id, or the end; "" is as a rule the master folder's.
    [[nodiscard]] Entries::const_iterator FindByProjectId(const std::string& projectId) const;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] const Entries& entries() const { return entries_; }
    [[nodiscard]] bool loaded() const { return loaded_; }

 private:
    void addOldLine(std::string_view line);

    std::string path_;
    std::string masterFolder_;
    Entries entries_;
    bool loaded_ = false;
};

}  // namespace quelm::sync

#pragma once

#include <optional>
#include <set>
#include <string>

#include "foundation/files/FolderHandle.h"

namespace quelm::sync {

/// The open cache folder of a sync root: what is found in it is removed from it, whatever becomes
/// of its path meanwhile.
class ProjectCacheFolder {
 public:
    [[nodiscard]] static std::string pathIn(const std::string& folder);
    /// None, with errno, where there is none that can be opened; a link in its place is none.
    [[nodiscard]] static std::optional<ProjectCacheFolder> open(const std::string& folder);

    /// The names of the project list files; none when they cannot be listed.
    [[nodiscard]] std::optional<std::set<std::string>> listFiles() const;
    /// The same of a folder that need not be open any longer.
    [[nodiscard]] static std::optional<std::set<std::string>> listFilesIn(
        const std::string& folder);
    [[nodiscard]] bool remove(const std::string& name) const { return handle_.removeFile(name); }

 private:
    explicit ProjectCacheFolder(os::FolderHandle handle) : handle_(std::move(handle)) {}
    os::FolderHandle handle_;
};

}  // namespace quelm::sync

#pragma once

#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

#include "foundation/files/FileIo.h"

namespace quelm::os {

/// Tells one folder from any other that stands in its place later.
struct FolderIdentity {
    dev_t device = 0;
    ino_t inode = 0;
    bool operator==(const FolderIdentity&) const = default;
};

/// An open folder, worked on by descriptor, so that exchanged paths do not lead elsewhere.
/// Operations answer no value and leave errno on failure.
class FolderHandle {
 public:
    struct Entry {
        std::string name;
        bool isFolder = false;
    };

    /// `path` is absolute and canonical: a link anywhere in it fails.
    [[nodiscard]] static std::optional<FolderHandle> openCanonical(const std::string& path);
    /// Links on the way to the folder are followed; one in its own place fails.
    [[nodiscard]] static std::optional<FolderHandle> open(const std::string& path);
    /// The folder `name` in this one; a link fails.
    [[nodiscard]] std::optional<FolderHandle> openChild(const std::string& name) const;
    [[nodiscard]] std::optional<FolderHandle> openParent() const;

    /// Everything but "." and "..".
    [[nodiscard]] std::optional<std::vector<Entry>> entries() const;
    [[nodiscard]] bool removeFile(const std::string& name) const;
    [[nodiscard]] bool removeEmptyFolder(const std::string& name) const;

    [[nodiscard]] const FolderIdentity& identity() const { return identity_; }
    /// Whether another file system, or another part of this one, is mounted here.
    [[nodiscard]] bool isMountPoint() const { return mountPoint_; }

 private:
    FolderHandle() = default;
    [[nodiscard]] static std::optional<FolderHandle> openAt(int folder, const std::string& name);

    FileDescriptor fd_;
    FolderIdentity identity_;
    bool mountPoint_ = false;
};

}  // namespace quelm::os

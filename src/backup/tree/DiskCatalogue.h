#pragma once

#include <string>
#include <vector>

#include "backup/tree/FolderCatalogue.h"
#include "platform/Volumes.h"
#include "platform/Workspace.h"

namespace orv {

/// The folders on the disks of this computer. File systems that hold no files (proc and the like)
/// are not among them: those that are mounted when the catalogue is made. Any thread.
class DiskCatalogue final : public FolderCatalogue {
 public:
    /// The workspace outlives it.
    DiskCatalogue(platform::Workspace& workspace, platform::Volumes& volumes);

    /// Of a folder with more than `mostFolders` folders some are left out, with a line in the log.
    [[nodiscard]] FolderListing list(const std::string& path) override;
    /// By the name, without asking the disk.
    [[nodiscard]] std::uint32_t flags(const std::string& path) override;
    [[nodiscard]] bool isSymlink(const std::string& path) override;

    static constexpr std::size_t mostFolders = 250'000;

 private:
    [[nodiscard]] bool isPseudo(const std::string& path) const;

    platform::Workspace& workspace_;
    /// Mount points, sorted.
    std::vector<std::string> pseudo_;
};

}  // namespace orv

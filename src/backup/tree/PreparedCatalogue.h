#pragma once

#include <string>
#include <unordered_map>

#include "backup/tree/FolderCatalogue.h"

namespace orv {

/// Asks another catalogue while a tree is built on a thread that may wait for disks, and from then
/// on answers only what it is given, so that nobody waits.
class PreparedCatalogue final : public FolderCatalogue {
 public:
    /// `disk` outlives the time until `close`.
    explicit PreparedCatalogue(FolderCatalogue& disk) : disk_(&disk) {}

    /// From now on the disk is not asked.
    void close() { disk_ = nullptr; }
    /// What the next `list` of the path answers, once.
    void give(const std::string& path, FolderListing listing) { given_[path] = std::move(listing); }

    /// Not readable for what was not given.
    [[nodiscard]] FolderListing list(const std::string& path) override;
    /// A container when the disk cannot be asked.
    [[nodiscard]] std::uint32_t flags(const std::string& path) override;
    [[nodiscard]] bool isSymlink(const std::string& path) override;

 private:
    FolderCatalogue* disk_;
    std::unordered_map<std::string, FolderListing> given_;
};

}  // namespace orv

#include "backup/tree/PreparedCatalogue.h"

#include "platform/Workspace.h"

namespace orv {

FolderListing PreparedCatalogue::list(const std::string& path) {
    if (disk_) return disk_->list(path);
    const auto given = given_.extract(path);
    return given ? given.mapped() : FolderListing();
}

std::uint32_t PreparedCatalogue::flags(const std::string& path) {
    return disk_ ? disk_->flags(path) : std::uint32_t{platform::ContainerItem};
}

bool PreparedCatalogue::isSymlink(const std::string& path) {
    return disk_ && disk_->isSymlink(path);
}

}  // namespace orv

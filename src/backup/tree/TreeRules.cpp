#include "backup/tree/TreeRules.h"

#include <algorithm>

#include "foundation/paths/PathPrefix.h"
#include "platform/Workspace.h"

namespace orv {

namespace {

constexpr std::uint32_t kindOfItem =
    platform::PackageItem | platform::ApplicationItem | platform::ContainerItem;

bool isPhotoLibrary(const FolderEntry& entry) {
    return (entry.flags & platform::PackageItem) != 0 && entry.name == "iPhoto Library";
}

}  // namespace

bool TreeRules::isVolumeExcluded(std::string_view path) const {
    return std::ranges::any_of(excludedVolumes, [path](const std::string& volume) {
        return quelm::StartsWithPath(path, volume);
    });
}

bool TreeRules::isPathExcluded(std::string_view path) const {
    return excludedFolders.matches(path);
}

std::string PathInFolder(std::string_view path, std::string_view name) {
    std::string whole;
    whole.reserve(path.size() + 1 + name.size());
    whole = path;
    if (!whole.ends_with('/')) whole += '/';
    return whole.append(name);
}

void KeepShownFolders(FolderListing& listing, const std::string& path, const TreeRules& rules) {
    if (listing.isFiltered) return;
    std::erase_if(listing.folders, [&](const FolderEntry& entry) {
        const bool isFolder = (entry.flags & kindOfItem) == platform::ContainerItem;
        if (!isFolder && !isPhotoLibrary(entry)) return true;
        const std::string whole = PathInFolder(path, entry.name);
        return whole == rules.excludedPath || rules.isPathExcluded(whole);
    });
    listing.isFiltered = true;
}

}  // namespace orv

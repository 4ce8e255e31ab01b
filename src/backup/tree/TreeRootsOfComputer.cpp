#include "backup/tree/TreeRootsOfComputer.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "backup/tree/MountPoints.h"
#include "config/VolumeFolders.h"
#include "foundation/files/Existence.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/LocalizedString.h"

namespace orv {

namespace {

/// Whether it lies directly in a folder of volumes.
bool isInFolderOfVolumes(std::string_view path) {
    const std::string_view folder = FolderOfVolumes(path);
    return !folder.empty() && folder == quelm::RemoveLastPathComponent(path);
}

TreeRoot rootNamedAsItsPath(const std::string& path) {
    return {path, std::string(quelm::GetLastPathComponent(path))};
}

void addShortcut(std::vector<TreeRoot>& shortcuts, const std::string& path) {
    if (!path.starts_with('/') || !quelm::IsFolder(path)) return;
    TreeRoot root{quelm::GetAbsolutePath(path), std::string(quelm::GetLastPathComponent(path))};
    const bool isKnown =
        root.path == "/" || std::ranges::count(shortcuts, root.path, &TreeRoot::path);
    if (!isKnown) shortcuts.push_back(std::move(root));
}

}  // namespace

TreeRoots RootsOfComputer(platform::Volumes& volumes, const std::string& home) {
    TreeRoots roots;
    roots.volumes.push_back({"/", quelm::GetLocalizedString("Tree.Computer", "Computer")});
    for (const platform::Volume& volume : VolumesInSight(volumes)) {
        if (!volume.pseudo && isInFolderOfVolumes(volume.mountPoint))
            roots.volumes.push_back(rootNamedAsItsPath(volume.mountPoint));
    }
    const std::string folder(quelm::RemoveLastSlashFromPath(home));
    for (const std::string& path : {folder + "/Desktop", folder, folder + "/Documents"})
        addShortcut(roots.shortcuts, path);
    return roots;
}

}  // namespace orv

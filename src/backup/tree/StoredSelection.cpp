#include <climits>
#include <set>
#include <utility>

#include "backup/tree/FileSystemTree.h"
#include "backup/tree/PathParts.h"
#include "backup/tree/TreeRules.h"
#include "config/VolumeFolders.h"
#include "platform/Workspace.h"

namespace orv {

namespace {

/// Collects the points where the selection switches, each once.
class PathsAndFlags {
 public:
    void addSubtree(const orv_FileSystemItem& root) {
        path_ = root.fullPath();
        add(root, false);
    }
    [[nodiscard]] quelm::Array take() { return std::move(rows_); }

 private:
    /// `path_` is the item's.
    void add(const orv_FileSystemItem& item, bool inherited) {
        const bool flag = item.checkFlag();
        if (flag != inherited && seen_.emplace(path_, flag).second)
            rows_.emplace_back(quelm::Array{path_, flag});
        for (const orv_FileSystemItem* child : item.loadedChildren()) {
            const std::size_t length = path_.size();
            if (!path_.ends_with('/')) path_ += '/';
            path_ += child->relativePath();
            add(*child, flag);
            path_.resize(length);
        }
    }

    std::string path_;
    std::set<std::pair<std::string, bool>> seen_;
    quelm::Array rows_;
};

std::string_view firstPart(std::string_view path) {
    return path.substr(0, path.find('/'));
}

bool isStorable(std::string_view path) {
    if (!path.starts_with('/') || path.size() >= PATH_MAX) return false;
    PathParts parts(path);
    while (const auto part = parts.next()) {
        if (*part == "..") return false;
    }
    return true;
}

/// The path without as many parts as the root's has, which may differ in case.
std::string_view below(std::string_view path, std::string_view root) {
    PathParts skipped(root);
    PathParts parts(path);
    while (skipped.next() && parts.next()) {
    }
    return parts.rest();
}

}  // namespace

quelm::Array FileSystemTree::getPathsAndFlags() {
    PathsAndFlags pairs;
    const auto& roots = getRootItems();
    for (std::size_t i = 0; i < roots.size(); ++i) {
        // a volume below another one is a part of that
        if (i >= volumeCount_ || !roots[i]->findParent()) pairs.addSubtree(*roots[i]);
    }
    return pairs.take();
}

orv_FileSystemItem* FileSystemTree::insertUserPath(std::string_view path, bool checked,
                                                   bool grandfathering) {
    if (!isStorable(path)) return nullptr;
    getRootItems();
    if (!grandfathering && isVolumeExcluded(path)) return nullptr;
    if (isPathExcluded(path)) return nullptr;
    orv_FileSystemItem* root = findRootItemForPath(path);
    if (root && root == rootFileSystemItem_) {
        if (auto* const unmounted = insertRootItemForPath(path)) root = unmounted;
    }
    if (!root) return nullptr;
    orv_FileSystemItem& item = root->createUserSubpath(below(path, pathOfRoot(*root)));
    item.changeStoreFlag(checked);
    return &item;
}

orv_FileSystemItem* FileSystemTree::insertRootItemForPath(std::string_view path) {
    const std::string_view folder = FolderOfVolumes(path);
    if (folder.empty() || folder.size() + 1 >= path.size()) return nullptr;
    const std::string_view name = firstPart(path.substr(folder.size() + 1));
    if (name.empty()) return nullptr;
    const std::string volume = PathInFolder(folder, name);
    orv_FileSystemItem* twin = nullptr;
    if (auto* const computer = rootFileSystemItem()) {
        bool isWhole = false;
        if (computer->findItemForSubpath(volume, isWhole).checkFlag()) return nullptr;
        twin = computer->createSubpath(volume);
    }
    orv_FileSystemItem& item = makeRoot({volume, std::string(name)});
    if (twin && twin->fullPath() == volume) item.joinRingOf(*twin);
    item.fsFlags_ = platform::ContainerItem;
    item.areFlagsLoaded_ = true;
    std::size_t place = 0;
    while (place < volumeCount_ && roots_[place]->relativePath() <= name)
        ++place;
    roots_.insert(roots_.begin() + static_cast<std::ptrdiff_t>(place), &item);
    ++volumeCount_;
    numberRoots(place);
    return &item;
}

}  // namespace orv

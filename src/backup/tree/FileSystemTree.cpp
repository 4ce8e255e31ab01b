#include "backup/tree/FileSystemTree.h"

#include <algorithm>
#include <iterator>

#include "foundation/paths/PathPrefix.h"

namespace orv {

FileSystemTree::FileSystemTree(FolderCatalogue& catalogue, TreeRoots roots, TreeRules rules)
    : catalogue_(catalogue), begin_(std::move(roots)), rules_(std::move(rules)) {}
FileSystemTree::~FileSystemTree() = default;

const std::vector<orv_FileSystemItem*>& FileSystemTree::getRootItems() {
    if (!isCreated_) createRootItems();
    return roots_;
}

orv_FileSystemItem* FileSystemTree::rootChildAtIndex(std::size_t index) {
    const auto& roots = getRootItems();
    return index < roots.size() ? roots[index] : nullptr;
}

orv_FileSystemItem* FileSystemTree::rootFileSystemItem() {
    getRootItems();
    return rootFileSystemItem_;
}

void FileSystemTree::releaseRootItems() {
    isCreated_ = false;
    roots_.clear();
    volumeCount_ = 0;
    rootFileSystemItem_ = nullptr;
    fullPathParam.clear();
    arena_.clear();
    rules_.excludedVolumes.clear();
}

void FileSystemTree::setExcludedVolumes(std::vector<std::string> volumes) {
    rules_.excludedVolumes = std::move(volumes);
}

void FileSystemTree::setExcludedPath(std::string path) {
    rules_.excludedPath = std::move(path);
}

void FileSystemTree::loadExcludedPathsPatterns(FolderPatterns patterns) {
    rules_.excludedFolders = std::move(patterns);
}

bool FileSystemTree::isVolumeExcluded(std::string_view path) const {
    return rules_.isVolumeExcluded(path);
}

bool FileSystemTree::isPathExcluded(std::string_view path) const {
    return rules_.isPathExcluded(path);
}

void FileSystemTree::createRootItems() {
    isCreated_ = true;
    createVolumes();
    createShortcuts();
}

void FileSystemTree::createVolumes() {
    const auto isShown = [this](const TreeRoot& volume) {
        const std::string_view path = volume.path;
        const auto last = path.substr(path.find_last_of('/') + 1);
        return path != "/home" && path != "/net" && !last.starts_with('.') &&
               std::ranges::find(rules_.excludedVolumes, path) == rules_.excludedVolumes.end();
    };
    for (const TreeRoot& volume : begin_.volumes) {
        if (!isShown(volume)) continue;
        orv_FileSystemItem& item = makeRoot(volume);
        roots_.push_back(&item);
        if (volume.path == "/") rootFileSystemItem_ = &item;
    }
    volumeCount_ = roots_.size();
    numberRoots(0);
    if (!rootFileSystemItem_) return;
    // reading the folders that they are mounted on makes them twins of these
    for (const TreeRoot& volume : begin_.volumes)
        static_cast<void>(rootFileSystemItem_->createSubpath(volume.path));
}

void FileSystemTree::createShortcuts() {
    for (const TreeRoot& shortcut : begin_.shortcuts) {
        orv_FileSystemItem& item = makeRoot(shortcut);
        roots_.push_back(&item);
        if (!rootFileSystemItem_) continue;
        auto* const twin = rootFileSystemItem_->createSubpath(shortcut.path);
        if (twin) item.joinRingOf(*twin);
    }
    numberRoots(volumeCount_);
}

orv_FileSystemItem& FileSystemTree::makeRoot(const TreeRoot& root) {
    orv_FileSystemItem& item = arena_.makeItem(*this, root.name);
    item.isRoot_ = true;
    fullPathParam[&item] = root.path;
    return item;
}

void FileSystemTree::numberRoots(std::size_t from) {
    for (std::size_t i = from; i < roots_.size(); ++i)
        roots_[i]->index_ = static_cast<std::uint32_t>(i);
}

const std::string& FileSystemTree::pathOfRoot(const orv_FileSystemItem& root) const {
    return fullPathParam.at(&root);
}

orv_FileSystemItem* FileSystemTree::rootWithPrefixOf(std::string_view path, std::size_t count) {
    using Starts = bool (*)(std::string_view, std::string_view);
    // exactly, before what differs in case
    for (const Starts starts : {Starts(quelm::StartsWithPath), Starts(orv::StartsWithPath)}) {
        orv_FileSystemItem* longest = nullptr;
        std::size_t length = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const std::string& prefix = pathOfRoot(*roots_[i]);
            if (!starts(path, prefix) || (longest && prefix.size() <= length)) continue;
            longest = roots_[i];
            length = prefix.size();
        }
        if (longest) return longest;
    }
    return nullptr;
}

orv_FileSystemItem* FileSystemTree::findRootItemForPath(std::string_view path) {
    return rootWithPrefixOf(path, getRootItems().size());
}

orv_FileSystemItem* FileSystemTree::findVolumeItemForPath(std::string_view path) {
    getRootItems();
    return rootWithPrefixOf(path, volumeCount_);
}

orv_FileSystemItem* FileSystemTree::findDuplicateItem(const std::string& path) {
    orv_FileSystemItem* const volume = rootWithPrefixOf(path, volumeCount_);
    return volume && pathOfRoot(*volume) == path ? volume : nullptr;
}

bool FileSystemTree::holdsVolume(std::string_view path) const {
    for (std::size_t i = 0; i < volumeCount_; ++i) {
        const std::string_view volume = pathOfRoot(*roots_[i]);
        if (volume != path && quelm::StartsWithPath(volume, path)) return true;
    }
    return false;
}

std::vector<orv_FileSystemItem*> FileSystemTree::outermostVolumes() {
    const auto& roots = getRootItems();
    std::vector<orv_FileSystemItem*> volumes;
    std::copy_if(roots.begin(), roots.begin() + static_cast<std::ptrdiff_t>(volumeCount_),
                 std::back_inserter(volumes),
                 [](const orv_FileSystemItem* volume) { return !volume->findParent(); });
    return volumes;
}

std::vector<orv_FileSystemItem*> FileSystemTree::findTopLevelItems() {
    std::vector<orv_FileSystemItem*> items;
    for (auto* volume : outermostVolumes())
        volume->findTopLevelItems(items);
    return items;
}

void FileSystemTree::resetScanState(orv_FileSystemItem::ScanningState state) {
    for (auto* volume : outermostVolumes())
        volume->resetScanState(state);
}

std::uint64_t FileSystemTree::getSelectionSize() {
    std::uint64_t bytes = 0;
    for (auto* volume : outermostVolumes())
        bytes += volume->getSelectionSize();
    return bytes;
}

void FileSystemTree::markTopLevelItems() {
    for (auto* volume : outermostVolumes())
        volume->markTopLevelItems();
}

bool FileSystemTree::isComputationInTreeRunnig() {
    return std::ranges::any_of(findTopLevelItems(), [](const orv_FileSystemItem* item) {
        return item->shoudStartScanForSubtree();
    });
}

}  // namespace orv

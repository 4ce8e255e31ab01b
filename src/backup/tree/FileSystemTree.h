#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "backup/tree/FileSystemItem.h"
#include "backup/tree/FolderCatalogue.h"
#include "backup/tree/NodeArena.h"
#include "backup/tree/TreeRules.h"
#include "platform/Value.h"

namespace orv {

/// A mounted volume, or a folder that stands among the roots of the tree.
struct TreeRoot {
    std::string path;
    std::string name;
    bool operator==(const TreeRoot&) const = default;
};

/// Where a tree begins.
struct TreeRoots {
    /// In the order in which they are shown.
    std::vector<TreeRoot> volumes = {};
    /// Folders of the person's own.
    std::vector<TreeRoot> shortcuts = {};
};

/// The folders that can be backed up, below the volumes and a few shortcuts, read as far as they
/// are looked at. Main thread only.
class FileSystemTree {
 public:
    /// The catalogue outlives it. Nothing is read before the roots are asked for.
    FileSystemTree(FolderCatalogue& catalogue, TreeRoots roots, TreeRules rules = {});
    FileSystemTree(const FileSystemTree&) = delete;
    FileSystemTree& operator=(const FileSystemTree&) = delete;
    ~FileSystemTree();

    // The roots: the volumes first.
    const std::vector<orv_FileSystemItem*>& getRootItems();
    [[nodiscard]] std::size_t numberOfRootItems() { return getRootItems().size(); }
    /// Null beyond the last.
    [[nodiscard]] orv_FileSystemItem* rootChildAtIndex(std::size_t index);
    [[nodiscard]] std::size_t numberOfVolumes() const { return volumeCount_; }
    /// The root "/"; null when that is none.
    [[nodiscard]] orv_FileSystemItem* rootFileSystemItem();
    /// Drops all items and the excluded volumes.
    void releaseRootItems();

    // What is not shown; to be set before the roots are asked for.
    void setExcludedVolumes(std::vector<std::string> volumes);
    void setExcludedPath(std::string path);
    void loadExcludedPathsPatterns(FolderPatterns patterns);
    [[nodiscard]] bool isVolumeExcluded(std::string_view path) const;
    [[nodiscard]] bool isPathExcluded(std::string_view path) const;
    [[nodiscard]] const TreeRules& rules() const { return rules_; }

    // By path; null when there is none.
    [[nodiscard]] orv_FileSystemItem* findRootItemForPath(std::string_view path);
    [[nodiscard]] orv_FileSystemItem* findVolumeItemForPath(std::string_view path);

    // What is stored of the selection.
    /// Every point where the selection switches on or off on the way down, as rows of a path and a
    /// flag, each once.
    [[nodiscard]] quelm::Array getPathsAndFlags();
    /// Takes such a row over, in the order in which they were stored. Null, and nothing, for a path
    /// that is not absolute, longer than a path can be, hidden by an expression or on an excluded
    /// volume; `grandfathering` lets the last pass.
    orv_FileSystemItem* insertUserPath(std::string_view path, bool checked, bool grandfathering);
    /// The root of a volume that is not mounted. Null for a path outside the folders of volumes,
    /// and below a checked folder: there the path is a part of the tree as any other, or what is
    /// left out of the folder would be forgotten.
    orv_FileSystemItem* insertRootItemForPath(std::string_view path);

    // Over all volumes.
    [[nodiscard]] std::vector<orv_FileSystemItem*> findTopLevelItems();
    void resetScanState(orv_FileSystemItem::ScanningState state);
    [[nodiscard]] std::uint64_t getSelectionSize();
    void markTopLevelItems();
    /// Whether something checked is not scanned yet.
    [[nodiscard]] bool isComputationInTreeRunnig();

    /// By its number; null for none.
    [[nodiscard]] orv_FileSystemItem* itemWithNumber(std::uint32_t number) {
        return arena_.itemWithNumber(number);
    }
    [[nodiscard]] std::size_t numberOfItems() const { return arena_.size(); }

 private:
    friend class orv_FileSystemItem;

    void createRootItems();
    void createVolumes();
    void createShortcuts();
    orv_FileSystemItem& makeRoot(const TreeRoot& root);
    void numberRoots(std::size_t from);
    [[nodiscard]] orv_FileSystemItem* rootWithPrefixOf(std::string_view path, std::size_t count);
    [[nodiscard]] const std::string& pathOfRoot(const orv_FileSystemItem& root) const;
    /// The root of the volume that is mounted at the path; null without one.
    [[nodiscard]] orv_FileSystemItem* findDuplicateItem(const std::string& path);
    /// Whether a volume is mounted somewhere below the path.
    [[nodiscard]] bool holdsVolume(std::string_view path) const;
    /// Those that stand below no other volume, which together have every folder once.
    [[nodiscard]] std::vector<orv_FileSystemItem*> outermostVolumes();

    FolderCatalogue& catalogue_;
    TreeRoots begin_;
    TreeRules rules_;
    NodeArena arena_;
    bool isCreated_ = false;
    std::vector<orv_FileSystemItem*> roots_;
    std::size_t volumeCount_ = 0;
    orv_FileSystemItem* rootFileSystemItem_ = nullptr;
    /// Of the roots; those of others are composed.
    std::unordered_map<const orv_FileSystemItem*, std::string> fullPathParam;
};

}  // namespace orv

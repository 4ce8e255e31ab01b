#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

class FileSystemTree;
struct ChildList;

/// A folder in the tree of what can be backed up. The same folder can stand in the tree twice,
/// under its volume and as a root of its own: such twins form a ring, share their state, and one of
/// them holds the children. The tree owns it. Main thread only.
class orv_FileSystemItem {
 public:
    /// As a visual size: to be computed when it is asked for.
    static constexpr std::uint64_t unknownSize = std::numeric_limits<std::uint64_t>::max();

    enum ScanningState : std::uint8_t {
        Idle = 0,
        ScanRequested = 1,
        /// The subtree is still being summed.
        OwnSizeKnown = 2,
        SubtreeScanned = 3,
    };

    orv_FileSystemItem(const orv_FileSystemItem&) = delete;
    orv_FileSystemItem& operator=(const orv_FileSystemItem&) = delete;

    // What it is.
    /// The name to show: the last part of the path, or the volume's name.
    [[nodiscard]] std::string_view relativePath() const { return {name_, nameLength_}; }
    [[nodiscard]] std::string fullPath() const;
    [[nodiscard]] bool isDirectoryOrVolume() const;
    [[nodiscard]] bool isIPhotoLibrary() const;
    [[nodiscard]] bool isApplication() const;
    [[nodiscard]] bool isPackage() const;
    [[nodiscard]] bool isContainer() const;
    [[nodiscard]] bool isVisible() const;
    /// Asks the disk.
    [[nodiscard]] bool isSymlink() const;
    /// A stored path that is not on the disk.
    [[nodiscard]] bool isMissing() const { return missing; }
    [[nodiscard]] bool isExpandable() const;
    [[nodiscard]] bool isCheckable() const;
    /// Whether its folder could not be read.
    [[nodiscard]] bool isUnreadable() const;

    // Where it stands.
    [[nodiscard]] orv_FileSystemItem* getParent() const { return parent_; }
    /// Of a root the parent of its first twin that has one.
    [[nodiscard]] orv_FileSystemItem* findParent() const;
    /// The highest ancestor that is checked.
    [[nodiscard]] orv_FileSystemItem* findParentTopItem();
    /// Its place among its siblings, or among the roots.
    [[nodiscard]] std::size_t index() const { return index_; }
    /// Tells it from every other item of the tree.
    [[nodiscard]] std::uint32_t number() const { return number_; }
    [[nodiscard]] bool isTwinOf(const orv_FileSystemItem* other) const;
    /// The next of its ring; itself without a twin.
    [[nodiscard]] orv_FileSystemItem* duplicateItem() const { return duplicateItem_; }

    // Its children, which its twins share; those that load read the disk once.
    /// Whether they have been read, or could not be.
    [[nodiscard]] bool hasLoadedChildren() const;
    /// Loads; empty for a folder that cannot be read.
    const std::vector<orv_FileSystemItem*>& children();
    /// Loads; -1 for a folder that cannot be read.
    [[nodiscard]] std::ptrdiff_t numberOfChildren();
    /// Loads; null beyond the last.
    [[nodiscard]] orv_FileSystemItem* childAtIndex(std::size_t index);
    /// Loads; null for a folder that cannot be read.
    [[nodiscard]] const std::vector<orv_FileSystemItem*>* getChildren();
    /// Those that are there now.
    [[nodiscard]] const std::vector<orv_FileSystemItem*>& loadedChildren() const;
    /// Loads; exactly that name before one that differs in case. Null without one.
    [[nodiscard]] orv_FileSystemItem* childWithName(std::string_view name);

    // Below it, by the path from here: "a/b".
    /// Loads; null when it is not there.
    [[nodiscard]] orv_FileSystemItem* createSubpath(std::string_view subpath);
    /// Loads; what is not there becomes a placeholder.
    [[nodiscard]] orv_FileSystemItem& createUserSubpath(std::string_view subpath);
    /// Puts a placeholder in its place by name.
    orv_FileSystemItem& insertChild(std::string_view name);
    /// The deepest that is loaded, perhaps this; `isWhole` tells whether it is the path's.
    [[nodiscard]] orv_FileSystemItem& findItemForSubpath(std::string_view subpath, bool& isWhole);
    /// The same for the part of `path` that begins at `offset`.
    [[nodiscard]] orv_FileSystemItem& findItemForSubpath(std::string_view path, std::size_t offset,
                                                         bool& isWhole);

    // What is selected.
    [[nodiscard]] bool checkFlag() const { return checkFlag_; }
    /// This folder and its twins alone.
    void setCheckFlag(bool flag);
    /// As the person does: all below follows, and the marks of those above.
    void changeStoreFlag(bool flag);
    /// Whether this or one above is checked.
    [[nodiscard]] bool isPathChecked() const;
    /// Partly checked: something below is checked, this is not.
    [[nodiscard]] bool shouldBeMarked() const { return shouldBeMarked_; }
    void setShouldBeMarked(bool marked);
    /// Marks those above every checked item of the subtree.
    void markTopLevelItems();
    /// Adds the highest checked items, this one or below it.
    void findTopLevelItems(std::vector<orv_FileSystemItem*>& items);

    // Whether its row opens when it is shown next.
    [[nodiscard]] bool shouldBeExpanded() const { return shouldBeExpanded_; }
    void setShouldBeExpanded(bool expanded) { shouldBeExpanded_ = expanded; }
    /// Opens every ancestor.
    void expandToItem();

    // Sizes in bytes, of the files that the filters let through.
    /// Of the files directly in it.
    [[nodiscard]] std::uint64_t getSize() const { return mySize; }
    void setSize(std::uint64_t bytes);
    [[nodiscard]] std::uint64_t sizeWithSubtree() const { return mySizeWitSubtree; }
    /// What the selection takes of the subtree.
    [[nodiscard]] std::uint64_t getVisualSize();
    void setVisualSize(std::uint64_t bytes);
    /// What the selection takes of it and of what is loaded below.
    [[nodiscard]] std::uint64_t getSelectionSize();

    // The scan.
    [[nodiscard]] ScanningState getScanningState() const { return scanningState; }
    void setScanningState(ScanningState state);
    /// Forgets the sizes of the loaded subtree.
    void resetScanState(ScanningState state);
    /// Takes the size of the folder at `path`, whose part below this begins at `offset`.
    void updateSubpath(std::string_view path, std::size_t offset, std::uint64_t size);
    /// That folder's subtree has been scanned.
    void setScannedPath(std::string_view path, std::size_t offset);
    [[nodiscard]] bool canCancelScan() const;
    /// Whether something checked in the loaded subtree is not scanned.
    [[nodiscard]] bool shoudStartScanForSubtree() const;

 private:
    friend class FileSystemTree;
    friend class NodeArena;

    orv_FileSystemItem(FileSystemTree& tree, std::uint32_t number)
        : tree_(&tree), duplicateItem_(this), number_(number) {}

    [[nodiscard]] std::uint32_t fsFlags() const;
    /// The first of the ring, this before others, with children; this when there is none.
    [[nodiscard]] const orv_FileSystemItem& findDuplicateWithChildren() const;
    [[nodiscard]] orv_FileSystemItem& findDuplicateWithChildren();
    void loadChildren();
    void adoptTwin(orv_FileSystemItem& child);
    [[nodiscard]] orv_FileSystemItem* findDuplicateItemForChild(const orv_FileSystemItem& child);
    void joinRingOf(orv_FileSystemItem& twin);
    void updateDuplicates();
    void updateMySettingsFromDuplicate();
    [[nodiscard]] orv_FileSystemItem* loadedChildWithName(std::string_view name) const;

    void updateCheckAndSizeForSubtree(bool flag);
    void setPathMarked();
    void setPathUnmarked();
    [[nodiscard]] std::uint64_t computeVisualSize();
    [[nodiscard]] std::uint64_t changesBelow() const;
    [[nodiscard]] bool hasCheckedDescendant() const;

    FileSystemTree* tree_;
    orv_FileSystemItem* parent_ = nullptr;
    orv_FileSystemItem* duplicateItem_;
    /// Null while they are not loaded.
    ChildList* children_ = nullptr;
    /// In the tree's arena.
    const char* name_ = nullptr;
    std::uint64_t mySize = 0;
    std::uint64_t mySizeWitSubtree = 0;
    std::uint64_t myVisualSize = unknownSize;
    std::uint32_t index_ = 0;
    std::uint32_t number_;
    std::uint16_t nameLength_ = 0;
    mutable std::uint8_t fsFlags_ = 0;
    ScanningState scanningState = Idle;
    bool checkFlag_ : 1 = false;
    bool missing : 1 = false;
    bool shouldBeMarked_ : 1 = false;
    bool shouldBeExpanded_ : 1 = false;
    mutable bool areFlagsLoaded_ : 1 = false;
    bool isRoot_ : 1 = false;
};

}  // namespace orv

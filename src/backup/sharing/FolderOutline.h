#pragma once

#include <functional>
#include <string>

#include "backup/tree/FileSystemTree.h"
#include "widgets/OutlineView.h"

namespace orv {

/// The rows of the folder tree. A folder that stands in it twice has two rows: a row is an item
/// together with the root under which it is shown. Main thread only.
class FolderOutline final : public OutlineDataSource {
 public:
    using Told = std::function<void(orv_FileSystemItem& item)>;
    struct Actions {
        /// The person opens a folder that was not read yet.
        Told wantsChildren;
        /// The person opens a folder.
        Told expanded;
        Told toggled;
        /// The size of what is shown is not known, and nobody is computing it.
        Told wantsScan;
    };

    explicit FolderOutline(Actions actions) : actions_(std::move(actions)) {}

    /// Null for no rows; it outlives this or is replaced.
    void setTree(FileSystemTree* tree) { tree_ = tree; }
    /// Null for what is no row.
    [[nodiscard]] orv_FileSystemItem* itemOf(OutlineItem row) const;

    [[nodiscard]] std::size_t numberOfChildrenOfItem(OutlineItem row) const override;
    [[nodiscard]] OutlineItem childOfItem(std::size_t index, OutlineItem row) const override;
    [[nodiscard]] OutlineItem parentOfItem(OutlineItem row) const override;
    [[nodiscard]] std::size_t indexOfItem(OutlineItem row) const override;
    [[nodiscard]] bool isItemExpandable(OutlineItem row) const override;
    [[nodiscard]] OutlineCell cellOfItem(OutlineItem row) const override;
    void itemWillExpand(OutlineItem row) override;
    void toggleItem(OutlineItem row) override;
    [[nodiscard]] bool takeShouldExpand(OutlineItem row) override;

 private:
    [[nodiscard]] orv_FileSystemItem* rootOf(OutlineItem row) const;
    /// Whether the item's row is one of those under the root.
    [[nodiscard]] bool isBelow(const orv_FileSystemItem& item,
                               const orv_FileSystemItem& root) const;
    [[nodiscard]] std::string titleOf(orv_FileSystemItem& item) const;
    [[nodiscard]] std::string imageOf(const orv_FileSystemItem& item) const;

    Actions actions_;
    FileSystemTree* tree_ = nullptr;
};

}  // namespace orv

#include "backup/sharing/FolderOutline.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "foundation/system/LocalizedString.h"
#include "widgets/SizeText.h"

namespace orv {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

// A row is the numbers of a root and of an item, each one more so that no row is null.

constexpr unsigned numberBits = 32;
static_assert(sizeof(OutlineItem) == sizeof(std::uint64_t));

OutlineItem rowOf(const orv_FileSystemItem& root, const orv_FileSystemItem& item) {
    const std::uint64_t bits =
        ((root.number() + std::uint64_t{1}) << numberBits) | (item.number() + std::uint64_t{1});
    return reinterpret_cast<OutlineItem>(static_cast<std::uintptr_t>(bits));
}

std::uint64_t bitsOf(OutlineItem row) {
    return reinterpret_cast<std::uintptr_t>(row);
}

// room for the check box and the icon, which are drawn over the text
constexpr std::string_view blanksBeforeCheckable = "        ";
constexpr std::string_view blanksBeforeOthers = "             ";

OutlineCheck checkOf(const orv_FileSystemItem& item) {
    if (!item.isCheckable()) return OutlineCheck::None;
    if (item.checkFlag()) return OutlineCheck::Checked;
    return item.shouldBeMarked() ? OutlineCheck::Partly : OutlineCheck::Unchecked;
}

bool isSizeKnown(orv_FileSystemItem& item) {
    const auto state = item.getScanningState();
    if (state == orv_FileSystemItem::ScanRequested) return item.getVisualSize() != 0;
    return state != orv_FileSystemItem::Idle;
}

std::string imageOfShortcut(std::string_view name) {
    if (name == "Desktop") return "folder-desktop";
    return name == "Documents" ? "folder-documents" : "folder-home";
}

std::string toolTipOf(const orv_FileSystemItem& item) {
    std::string path = item.fullPath();
    if (item.isMissing() && !item.isPathChecked()) {
        return FormatLocalizedString("Sharing.MissingLeftOutHint",
                                     "%@ is not on the disk. It is not backed up when it comes "
                                     "back either; check it to change that.",
                                     {path});
    }
    if (item.isMissing()) {
        return FormatLocalizedString("Sharing.MissingHint",
                                     "%@ is not on the disk. It stays selected and is backed up "
                                     "when it comes back; uncheck it to give it up.",
                                     {path});
    }
    if (item.isUnreadable()) {
        return FormatLocalizedString("Sharing.UnreadableHint",
                                     "%@ cannot be read, so nothing of it is backed up. Give your "
                                     "account the right to read it.",
                                     {path});
    }
    return path;
}

}  // namespace

orv_FileSystemItem* FolderOutline::itemOf(OutlineItem row) const {
    if (!tree_ || !row) return nullptr;
    return tree_->itemWithNumber(static_cast<std::uint32_t>(bitsOf(row)) - 1);
}

orv_FileSystemItem* FolderOutline::rootOf(OutlineItem row) const {
    if (!tree_ || !row) return nullptr;
    return tree_->itemWithNumber(static_cast<std::uint32_t>(bitsOf(row) >> numberBits) - 1);
}

std::size_t FolderOutline::numberOfChildrenOfItem(OutlineItem row) const {
    if (!tree_) return 0;
    if (!row) return tree_->numberOfRootItems();
    const auto* const item = itemOf(row);
    return item ? item->loadedChildren().size() : 0;
}

OutlineItem FolderOutline::childOfItem(std::size_t index, OutlineItem row) const {
    if (!tree_) return nullptr;
    if (!row) {
        const auto* const root = tree_->rootChildAtIndex(index);
        return root ? rowOf(*root, *root) : nullptr;
    }
    const auto* const item = itemOf(row);
    const auto* const root = rootOf(row);
    if (!item || !root || index >= item->loadedChildren().size()) return nullptr;
    return rowOf(*root, *item->loadedChildren()[index]);
}

OutlineItem FolderOutline::parentOfItem(OutlineItem row) const {
    const auto* const item = itemOf(row);
    const auto* const root = rootOf(row);
    if (!item || !root || item == root || !item->getParent()) return nullptr;
    // the twin of the parent that is shown under this root
    const orv_FileSystemItem* const first = item->getParent();
    const auto* parent = first;
    do {
        if (isBelow(*parent, *root)) return rowOf(*root, *parent);
        parent = parent->duplicateItem();
    } while (parent != first);
    return nullptr;
}

bool FolderOutline::isBelow(const orv_FileSystemItem& item, const orv_FileSystemItem& root) const {
    if (&item == &root) return true;
    // another root has its own row only
    for (const auto* above = item.getParent(); above; above = above->findParent()) {
        if (above->isTwinOf(&root)) return true;
    }
    return false;
}

std::size_t FolderOutline::indexOfItem(OutlineItem row) const {
    const auto* const item = itemOf(row);
    return item ? item->index() : 0;
}

bool FolderOutline::isItemExpandable(OutlineItem row) const {
    const auto* const item = itemOf(row);
    return item && item->isExpandable();
}

std::string FolderOutline::titleOf(orv_FileSystemItem& item) const {
    std::string title(item.isCheckable() ? blanksBeforeCheckable : blanksBeforeOthers);
    title += item.relativePath();
    if (!item.isCheckable()) return title;
    if (item.isMissing())
        return title + GetLocalizedString("Sharing.FolderMissing", " (Folder is missing)");
    if (!item.checkFlag()) return title;
    if (isSizeKnown(item))
        return title + FormatLocalizedString("Sharing.FolderSize", "  (%@)",
                                             {FileSizeText(item.getVisualSize())});
    if (item.getScanningState() == orv_FileSystemItem::Idle && actions_.wantsScan)
        actions_.wantsScan(item);
    return title + " (--- KB)";
}

std::string FolderOutline::imageOf(const orv_FileSystemItem& item) const {
    if (item.isMissing()) return "folder-missing";
    if (item.isUnreadable()) return "folder-locked";
    if (item.getParent()) return "folder";
    const bool isVolume = item.index() < tree_->numberOfVolumes();
    return isVolume ? "drive" : imageOfShortcut(item.relativePath());
}

OutlineCell FolderOutline::cellOfItem(OutlineItem row) const {
    auto* const item = itemOf(row);
    if (!item) return {};
    return {.title = titleOf(*item),
            .imageName = imageOf(*item),
            .toolTip = toolTipOf(*item),
            .check = checkOf(*item),
            .isFaint = item->isMissing() || !item->isVisible()};
}

void FolderOutline::itemWillExpand(OutlineItem row) {
    auto* const item = itemOf(row);
    if (!item) return;
    if (!item->hasLoadedChildren() && actions_.wantsChildren) actions_.wantsChildren(*item);
    if (actions_.expanded) actions_.expanded(*item);
}

void FolderOutline::toggleItem(OutlineItem row) {
    auto* const item = itemOf(row);
    if (item && item->isCheckable() && actions_.toggled) actions_.toggled(*item);
}

bool FolderOutline::takeShouldExpand(OutlineItem row) {
    auto* const item = itemOf(row);
    if (!item || !item->shouldBeExpanded()) return false;
    item->setShouldBeExpanded(false);
    return true;
}

}  // namespace orv

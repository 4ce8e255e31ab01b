#include <algorithm>

#include "backup/tree/FileSystemTree.h"

namespace orv {

// Sums wrap as unsigned numbers do: what is added and what is taken away again cancel out.

void orv_FileSystemItem::setSize(std::uint64_t bytes) {
    mySize = bytes;
    updateDuplicates();
}

void orv_FileSystemItem::setVisualSize(std::uint64_t bytes) {
    myVisualSize = bytes;
    updateDuplicates();
}

void orv_FileSystemItem::setScanningState(ScanningState state) {
    scanningState = state;
    updateDuplicates();
}

std::uint64_t orv_FileSystemItem::getVisualSize() {
    if (myVisualSize == unknownSize) setVisualSize(computeVisualSize());
    return myVisualSize;
}

std::uint64_t orv_FileSystemItem::computeVisualSize() {
    const orv_FileSystemItem& holder = findDuplicateWithChildren();
    if (holder.scanningState == SubtreeScanned && holder.mySizeWitSubtree != unknownSize)
        return (holder.checkFlag_ ? holder.mySizeWitSubtree : 0) + holder.changesBelow();
    if (!holder.children_) return holder.checkFlag_ ? holder.mySizeWitSubtree : 0;
    std::uint64_t bytes = holder.checkFlag_ ? holder.mySize : 0;
    for (orv_FileSystemItem* child : holder.children_->items)
        bytes += child->getVisualSize();
    return bytes;
}

std::uint64_t orv_FileSystemItem::changesBelow() const {
    std::uint64_t bytes = 0;
    for (const orv_FileSystemItem* child : loadedChildren()) {
        if (child->checkFlag_ != checkFlag_)
            bytes += checkFlag_ ? 0 - child->mySizeWitSubtree : child->mySizeWitSubtree;
        bytes += child->changesBelow();
    }
    return bytes;
}

std::uint64_t orv_FileSystemItem::getSelectionSize() {
    if (checkFlag_) return getVisualSize();
    std::uint64_t bytes = 0;
    for (orv_FileSystemItem* child : loadedChildren())
        bytes += child->getSelectionSize();
    return bytes;
}

void orv_FileSystemItem::resetScanState(ScanningState state) {
    mySize = 0;
    mySizeWitSubtree = 0;
    myVisualSize = unknownSize;
    scanningState = state;
    updateDuplicates();
    for (orv_FileSystemItem* child : loadedChildren())
        child->resetScanState(state);
}

void orv_FileSystemItem::updateSubpath(std::string_view path, std::size_t offset,
                                       std::uint64_t size) {
    bool isWhole = false;
    orv_FileSystemItem& item = findItemForSubpath(path, offset, isWhole);
    const std::uint64_t selected = item.checkFlag_ ? size : 0;
    if (isWhole) {
        item.mySize = size;
        item.mySizeWitSubtree = size;
        item.myVisualSize = selected;
        item.scanningState = OwnSizeKnown;
    } else if (item.scanningState == OwnSizeKnown) {
        item.mySizeWitSubtree += size;
        if (item.myVisualSize != unknownSize) item.myVisualSize += selected;
    }
    item.updateDuplicates();
    for (auto* above = item.findParent(); above && above->scanningState == OwnSizeKnown;
         above = above->findParent()) {
        above->mySizeWitSubtree += size;
        above->myVisualSize = unknownSize;
        above->updateDuplicates();
    }
}

void orv_FileSystemItem::setScannedPath(std::string_view path, std::size_t offset) {
    bool isWhole = false;
    orv_FileSystemItem& item = findItemForSubpath(path, offset, isWhole);
    // its twins keep theirs: they may be scanned from elsewhere
    if (isWhole) item.scanningState = SubtreeScanned;
}

}  // namespace orv

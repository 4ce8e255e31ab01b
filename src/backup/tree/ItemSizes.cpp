#include <algorithm>

#include "backup/tree/FileSystemTree.h"

namespace orv {

// Sums wrap as unsigned numbers do: what is added and what is taken away again cancel out.

void orv_FileSystemItem::setSize(std::uint64_t bytes) {
    mySize_ = bytes;
    updateDuplicates();
}

void orv_FileSystemItem::setVisualSize(std::uint64_t bytes) {
    myVisualSize_ = bytes;
    updateDuplicates();
}

void orv_FileSystemItem::setScanningState(ScanningState state) {
    scanningState_ = state;
    updateDuplicates();
}

std::uint64_t orv_FileSystemItem::getVisualSize() {
    if (myVisualSize_ == unknownSize) setVisualSize(computeVisualSize());
    return myVisualSize_;
}

std::uint64_t orv_FileSystemItem::computeVisualSize() {
    const orv_FileSystemItem& holder = findDuplicateWithChildren();
    if (holder.scanningState_ == SubtreeScanned && holder.mySizeWitSubtree_ != unknownSize)
        return (holder.checkFlag_ ? holder.mySizeWitSubtree_ : 0) + holder.changesBelow();
    if (!holder.children_) return holder.checkFlag_ ? holder.mySizeWitSubtree_ : 0;
    std::uint64_t bytes = holder.checkFlag_ ? holder.mySize_ : 0;
    for (orv_FileSystemItem* child : holder.children_->items)
        bytes += child->getVisualSize();
    return bytes;
}

std::uint64_t orv_FileSystemItem::changesBelow() const {
    std::uint64_t bytes = 0;
    for (const orv_FileSystemItem* child : loadedChildren()) {
        if (child->checkFlag_ != checkFlag_)
            bytes += checkFlag_ ? 0 - child->mySizeWitSubtree_ : child->mySizeWitSubtree_;
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
    mySize_ = 0;
    mySizeWitSubtree_ = 0;
    myVisualSize_ = unknownSize;
    scanningState_ = state;
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
        item.mySize_ = size;
        item.mySizeWitSubtree_ = size;
        item.myVisualSize_ = selected;
        item.scanningState_ = OwnSizeKnown;
    } else if (item.scanningState_ == OwnSizeKnown) {
        item.mySizeWitSubtree_ += size;
        if (item.myVisualSize_ != unknownSize) item.myVisualSize_ += selected;
    }
    item.updateDuplicates();
    for (auto* above = item.findParent(); above && above->scanningState_ == OwnSizeKnown;
         above = above->findParent()) {
        above->mySizeWitSubtree_ += size;
        above->myVisualSize_ = unknownSize;
        above->updateDuplicates();
    }
}

void orv_FileSystemItem::setScannedPath(std::string_view path, std::size_t offset) {
    bool isWhole = false;
    orv_FileSystemItem& item = findItemForSubpath(path, offset, isWhole);
    // its twins keep theirs: they may be scanned from elsewhere
    if (isWhole) item.scanningState_ = SubtreeScanned;
}

}  // namespace orv

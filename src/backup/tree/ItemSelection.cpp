#include <algorithm>

#include "backup/tree/FileSystemTree.h"

namespace orv {

void orv_FileSystemItem::setCheckFlag(bool flag) {
    checkFlag_ = flag;
    updateDuplicates();
}

void orv_FileSystemItem::setShouldBeMarked(bool marked) {
    shouldBeMarked_ = marked;
    updateDuplicates();
}

bool orv_FileSystemItem::isPathChecked() const {
    for (const auto* item = this; item; item = item->findParent()) {
        if (item->checkFlag_) return true;
    }
    return false;
}

void orv_FileSystemItem::changeStoreFlag(bool flag) {
    if (checkFlag_ == flag) return;
    orv_FileSystemItem* const parent = findParent();
    updateCheckAndSizeForSubtree(flag);
    if (flag) {
        if (parent && !parent->isPathChecked()) parent->setPathMarked();
    } else if (!isPathChecked()) {
        // nothing below is checked now, so there is nobody to mark it for
        setPathUnmarked();
    }
    for (auto* above = parent; above; above = above->findParent())
        above->setVisualSize(unknownSize);
}

void orv_FileSystemItem::updateCheckAndSizeForSubtree(bool flag) {
    checkFlag_ = flag;
    myVisualSize = unknownSize;
    if (flag) shouldBeMarked_ = false;
    if (duplicateItem_ != this) updateDuplicates();
    // a click may ask a million of them
    for (orv_FileSystemItem* child : children_ ? children_->items : loadedChildren())
        child->updateCheckAndSizeForSubtree(flag);
}

void orv_FileSystemItem::setPathMarked() {
    for (auto* item = this; item; item = item->findParent())
        item->setShouldBeMarked(true);
}

void orv_FileSystemItem::setPathUnmarked() {
    for (auto* item = this; item;) {
        item->setShouldBeMarked(false);
        const orv_FileSystemItem* const cleared = item;
        item = item->findParent();
        if (!item) break;
        const auto isReason = [cleared](const orv_FileSystemItem* other) {
            return other != cleared && (other->checkFlag_ || other->shouldBeMarked_);
        };
        if (std::ranges::any_of(item->loadedChildren(), isReason)) break;
    }
}

void orv_FileSystemItem::markTopLevelItems() {
    if (checkFlag_) {
        if (auto* const parent = findParent()) parent->setPathMarked();
        return;
    }
    for (orv_FileSystemItem* child : loadedChildren())
        child->markTopLevelItems();
}

void orv_FileSystemItem::findTopLevelItems(std::vector<orv_FileSystemItem*>& items) {
    if (checkFlag_) {
        items.push_back(this);
        return;
    }
    for (orv_FileSystemItem* child : loadedChildren())
        child->findTopLevelItems(items);
}

bool orv_FileSystemItem::hasCheckedDescendant() const {
    return std::ranges::any_of(loadedChildren(), [](const orv_FileSystemItem* child) {
        return child->checkFlag_ || child->hasCheckedDescendant();
    });
}

bool orv_FileSystemItem::canCancelScan() const {
    for (const auto* item = this; item; item = item->findParent()) {
        if (item->checkFlag_ && item->scanningState != SubtreeScanned) return false;
    }
    return !hasCheckedDescendant();
}

bool orv_FileSystemItem::shoudStartScanForSubtree() const {
    if (checkFlag_ && scanningState != SubtreeScanned) return true;
    return std::ranges::any_of(loadedChildren(), [](const orv_FileSystemItem* child) {
        return child->shoudStartScanForSubtree();
    });
}

}  // namespace orv

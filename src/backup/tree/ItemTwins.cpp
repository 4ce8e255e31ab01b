#include <utility>

#include "backup/tree/ChildNames.h"
#include "backup/tree/FileSystemTree.h"

namespace orv {

bool orv_FileSystemItem::isTwinOf(const orv_FileSystemItem* other) const {
    const orv_FileSystemItem* item = this;
    do {
        if (item == other) return true;
        item = item->duplicateItem_;
    } while (item != this);
    return false;
}

const orv_FileSystemItem& orv_FileSystemItem::findDuplicateWithChildren() const {
    const orv_FileSystemItem* item = this;
    do {
        if (item->children_) return *item;
        item = item->duplicateItem_;
    } while (item != this);
    return *this;
}

orv_FileSystemItem& orv_FileSystemItem::findDuplicateWithChildren() {
    return const_cast<orv_FileSystemItem&>(std::as_const(*this).findDuplicateWithChildren());
}

void orv_FileSystemItem::updateDuplicates() {
    for (auto* twin = duplicateItem_; twin != this; twin = twin->duplicateItem_) {
        twin->mySize = mySize;
        twin->mySizeWitSubtree = mySizeWitSubtree;
        twin->myVisualSize = myVisualSize;
        twin->scanningState = scanningState;
        twin->checkFlag_ = checkFlag_;
        twin->shouldBeMarked_ = shouldBeMarked_;
    }
}

void orv_FileSystemItem::updateMySettingsFromDuplicate() {
    mySize = duplicateItem_->mySize;
    mySizeWitSubtree = duplicateItem_->mySizeWitSubtree;
    myVisualSize = duplicateItem_->myVisualSize;
    scanningState = duplicateItem_->scanningState;
    checkFlag_ = duplicateItem_->checkFlag_;
    shouldBeMarked_ = duplicateItem_->shouldBeMarked_;
}

void orv_FileSystemItem::joinRingOf(orv_FileSystemItem& twin) {
    if (isTwinOf(&twin)) return;
    duplicateItem_ = twin.duplicateItem_;
    twin.duplicateItem_ = this;
    updateMySettingsFromDuplicate();
}

orv_FileSystemItem* orv_FileSystemItem::findDuplicateItemForChild(const orv_FileSystemItem& child) {
    for (auto* twin = duplicateItem_; twin != this; twin = twin->duplicateItem_) {
        if (!twin->children_ || twin->children_->isUnreadable) continue;
        if (const auto place = FindChildByName(*twin->children_, child.relativePath()))
            return twin->children_->items[*place];
    }
    return tree_->findDuplicateItem(child.fullPath());
}

void orv_FileSystemItem::adoptTwin(orv_FileSystemItem& child) {
    orv_FileSystemItem* const twin = findDuplicateItemForChild(child);
    if (twin && twin != &child) {
        child.joinRingOf(*twin);
    } else {
        child.checkFlag_ = checkFlag_;
    }
}

}  // namespace orv

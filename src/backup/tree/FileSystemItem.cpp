#include "backup/tree/FileSystemItem.h"

#include <algorithm>

#include "backup/tree/FileSystemTree.h"
#include "platform/Workspace.h"

namespace orv {

namespace {

constexpr std::uint32_t checkable =
    platform::PackageItem | platform::ApplicationItem | platform::ContainerItem;

}  // namespace

std::string orv_FileSystemItem::fullPath() const {
    std::vector<const orv_FileSystemItem*> way;
    const orv_FileSystemItem* item = this;
    for (; !item->isRoot_; item = item->parent_)
        way.push_back(item);
    std::string path = tree_->pathOfRoot(*item);
    for (auto step = way.rbegin(); step != way.rend(); ++step) {
        if (!path.ends_with('/')) path += '/';
        path += (*step)->relativePath();
    }
    return path;
}

std::uint32_t orv_FileSystemItem::fsFlags() const {
    if (!areFlagsLoaded_) {
        areFlagsLoaded_ = true;
        fsFlags_ = static_cast<std::uint8_t>(tree_->catalogue_.flags(fullPath()));
    }
    return fsFlags_;
}

bool orv_FileSystemItem::isDirectoryOrVolume() const {
    return (fsFlags() & checkable) == platform::ContainerItem;
}

bool orv_FileSystemItem::isIPhotoLibrary() const {
    return isPackage() && relativePath() == "iPhoto Library";
}

bool orv_FileSystemItem::isApplication() const {
    return (fsFlags() & platform::ApplicationItem) != 0;
}

bool orv_FileSystemItem::isPackage() const {
    return (fsFlags() & platform::PackageItem) != 0;
}

bool orv_FileSystemItem::isContainer() const {
    return (fsFlags() & platform::ContainerItem) != 0;
}

bool orv_FileSystemItem::isVisible() const {
    return (fsFlags() & platform::InvisibleItem) == 0;
}

bool orv_FileSystemItem::isSymlink() const {
    return tree_->catalogue_.isSymlink(fullPath());
}

bool orv_FileSystemItem::isExpandable() const {
    const ChildList* const list = findDuplicateWithChildren().children_;
    return list ? !list->isUnreadable : isDirectoryOrVolume();
}

bool orv_FileSystemItem::isCheckable() const {
    return this != tree_->rootFileSystemItem_ && (fsFlags() & checkable) != 0;
}

bool orv_FileSystemItem::isUnreadable() const {
    const ChildList* const list = findDuplicateWithChildren().children_;
    return list && list->isUnreadable && !missing;
}

orv_FileSystemItem* orv_FileSystemItem::findParent() const {
    const orv_FileSystemItem* item = this;
    do {
        if (item->parent_) return item->parent_;
        item = item->duplicateItem_;
    } while (item != this);
    return nullptr;
}

orv_FileSystemItem* orv_FileSystemItem::findParentTopItem() {
    orv_FileSystemItem* top = nullptr;
    for (auto* item = findParent(); item; item = item->findParent()) {
        if (item->checkFlag_) top = item;
    }
    return top;
}

void orv_FileSystemItem::expandToItem() {
    for (auto* item = findParent(); item; item = item->findParent())
        item->shouldBeExpanded_ = true;
}

}  // namespace orv

#include <algorithm>

#include "backup/tree/ChildNames.h"
#include "backup/tree/FileSystemTree.h"
#include "backup/tree/PathParts.h"
#include "platform/Workspace.h"

namespace orv {

void orv_FileSystemItem::loadChildren() {
    NodeArena& arena = tree_->arena_;
    const std::string path = fullPath();
    FolderListing listing = tree_->catalogue_.list(path);
    if (!listing.isReadable) {
        children_ = &arena.unreadableList();
        return;
    }
    KeepShownFolders(listing, path, tree_->rules_);
    if (listing.folders.empty()) {
        children_ = &arena.emptyList();
        return;
    }
    ChildList& list = arena.makeList();
    list.items.reserve(listing.folders.size());
    const bool mayHaveTwins = duplicateItem_ != this || tree_->holdsVolume(path);
    for (const FolderEntry& entry : listing.folders) {
        orv_FileSystemItem& child = arena.makeItem(*tree_, entry.name);
        child.parent_ = this;
        child.index_ = static_cast<std::uint32_t>(list.items.size());
        child.fsFlags_ = static_cast<std::uint8_t>(entry.flags);
        child.areFlagsLoaded_ = true;
        list.items.push_back(&child);
        if (mayHaveTwins) {
            adoptTwin(child);
        } else {
            child.checkFlag_ = checkFlag_;
        }
    }
    children_ = &list;
}

bool orv_FileSystemItem::hasLoadedChildren() const {
    return findDuplicateWithChildren().children_ != nullptr;
}

const std::vector<orv_FileSystemItem*>& orv_FileSystemItem::children() {
    orv_FileSystemItem& holder = findDuplicateWithChildren();
    if (!holder.children_) holder.loadChildren();
    return holder.children_->items;
}

const std::vector<orv_FileSystemItem*>& orv_FileSystemItem::loadedChildren() const {
    const ChildList* const list = findDuplicateWithChildren().children_;
    return list ? list->items : tree_->arena_.emptyList().items;
}

const std::vector<orv_FileSystemItem*>* orv_FileSystemItem::getChildren() {
    const auto& items = children();
    return isUnreadable() ? nullptr : &items;
}

std::ptrdiff_t orv_FileSystemItem::numberOfChildren() {
    const auto* const items = getChildren();
    return items ? static_cast<std::ptrdiff_t>(items->size()) : -1;
}

orv_FileSystemItem* orv_FileSystemItem::childAtIndex(std::size_t index) {
    const auto& items = children();
    return index < items.size() ? items[index] : nullptr;
}

orv_FileSystemItem* orv_FileSystemItem::childWithName(std::string_view name) {
    children();
    return loadedChildWithName(name);
}

orv_FileSystemItem* orv_FileSystemItem::loadedChildWithName(std::string_view name) const {
    ChildList* const list = findDuplicateWithChildren().children_;
    if (!list) return nullptr;
    const auto place = FindChildByName(*list, name);
    return place ? list->items[*place] : nullptr;
}

orv_FileSystemItem* orv_FileSystemItem::createSubpath(std::string_view subpath) {
    PathParts parts(subpath);
    orv_FileSystemItem* item = this;
    while (item) {
        const auto part = parts.next();
        if (!part) break;
        item = item->childWithName(*part);
    }
    return item;
}

orv_FileSystemItem& orv_FileSystemItem::createUserSubpath(std::string_view subpath) {
    PathParts parts(subpath);
    orv_FileSystemItem* item = this;
    while (const auto part = parts.next()) {
        orv_FileSystemItem* const child = item->childWithName(*part);
        item = child ? child : &item->insertChild(*part);
    }
    return *item;
}

orv_FileSystemItem& orv_FileSystemItem::insertChild(std::string_view name) {
    children();
    orv_FileSystemItem& holder = findDuplicateWithChildren();
    NodeArena& arena = tree_->arena_;
    const bool isShared =
        holder.children_ == &arena.emptyList() || holder.children_ == &arena.unreadableList();
    if (isShared) holder.children_ = &arena.makeList();
    ChildList& list = *holder.children_;

    orv_FileSystemItem& child = arena.makeItem(*tree_, name);
    child.parent_ = &holder;
    child.fsFlags_ = platform::ContainerItem;
    child.areFlagsLoaded_ = true;
    child.missing = true;
    child.checkFlag_ = holder.checkFlag_;
    // nothing is there to be read
    child.children_ = &arena.unreadableList();
    const auto place = std::ranges::find_if(list.items, [name](const orv_FileSystemItem* other) {
        return CompareWithoutCase(other->relativePath(), name) > 0;
    });
    auto at = list.items.insert(place, &child);
    for (auto index = static_cast<std::uint32_t>(at - list.items.begin()); at != list.items.end();
         ++at, ++index) {
        (*at)->index_ = index;
    }
    list.byName.clear();
    return child;
}

orv_FileSystemItem& orv_FileSystemItem::findItemForSubpath(std::string_view subpath,
                                                           bool& isWhole) {
    PathParts parts(subpath);
    orv_FileSystemItem* item = this;
    isWhole = true;
    while (const auto part = parts.next()) {
        orv_FileSystemItem* const child = item->loadedChildWithName(*part);
        if (!child) {
            isWhole = false;
            break;
        }
        item = child;
    }
    return *item;
}

orv_FileSystemItem& orv_FileSystemItem::findItemForSubpath(std::string_view path,
                                                           std::size_t offset, bool& isWhole) {
    return findItemForSubpath(path.substr(std::min(offset, path.size())), isWhole);
}

}  // namespace orv

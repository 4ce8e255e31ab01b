#include "backup/tree/NodeArena.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

namespace orv {

// a million items, most of them without children
static_assert(sizeof(orv_FileSystemItem) <= 80);
static_assert(std::is_trivially_destructible_v<orv_FileSystemItem>);

orv_FileSystemItem& NodeArena::makeItem(FileSystemTree& tree, std::string_view name) {
    const std::size_t place = count_ % itemsInBlock;
    if (place == 0)
        blocks_.push_back(
            std::make_unique_for_overwrite<std::byte[]>(itemsInBlock * sizeof(orv_FileSystemItem)));
    std::byte* const memory = blocks_.back().get() + place * sizeof(orv_FileSystemItem);
    auto* const item = new (memory) orv_FileSystemItem(tree, static_cast<std::uint32_t>(count_));
    ++count_;
    name = name.substr(0, std::numeric_limits<std::uint16_t>::max());
    item->name_ = keep(name);
    item->nameLength_ = static_cast<std::uint16_t>(name.size());
    return *item;
}

orv_FileSystemItem* NodeArena::itemWithNumber(std::uint32_t number) {
    if (number >= count_) return nullptr;
    std::byte* const block = blocks_[number / itemsInBlock].get();
    return std::launder(reinterpret_cast<orv_FileSystemItem*>(
        block + number % itemsInBlock * sizeof(orv_FileSystemItem)));
}

const char* NodeArena::keep(std::string_view name) {
    if (name.size() > nameBytesLeft_) {
        nameBytesLeft_ = std::max(bytesInBlock, name.size());
        names_.push_back(std::make_unique_for_overwrite<char[]>(nameBytesLeft_));
        nextName_ = names_.back().get();
    }
    char* const kept = nextName_;
    std::memcpy(kept, name.data(), name.size());
    nextName_ += name.size();
    nameBytesLeft_ -= name.size();
    return kept;
}

void NodeArena::clear() {
    blocks_.clear();
    names_.clear();
    lists_.clear();
    count_ = 0;
    nameBytesLeft_ = 0;
    nextName_ = nullptr;
}

}  // namespace orv

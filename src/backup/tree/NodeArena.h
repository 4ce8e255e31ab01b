#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

#include "backup/tree/FileSystemItem.h"

namespace orv {

/// The children of an item.
struct ChildList {
    std::vector<orv_FileSystemItem*> items = {};
    /// Positions in `items`, by name without regard to case; empty while there are few, and until
    /// somebody looks for a name.
    std::vector<std::uint32_t> byName = {};
    bool isUnreadable = false;
};

/// Owns the items of a tree, their names and their lists, which all go together: a million folders
/// cost little more than their bytes.
class NodeArena {
 public:
    NodeArena() = default;
    NodeArena(const NodeArena&) = delete;
    NodeArena& operator=(const NodeArena&) = delete;
    ~NodeArena() { clear(); }

    /// A name longer than 65,535 bytes is cut.
    orv_FileSystemItem& makeItem(FileSystemTree& tree, std::string_view name);
    ChildList& makeList() { return lists_.emplace_back(); }
    [[nodiscard]] orv_FileSystemItem* itemWithNumber(std::uint32_t number);
    [[nodiscard]] std::size_t size() const { return count_; }
    void clear();

    /// What every folder without children shares; never changed.
    [[nodiscard]] ChildList& emptyList() { return empty_; }
    [[nodiscard]] ChildList& unreadableList() { return unreadable_; }

 private:
    static constexpr std::size_t itemsInBlock = 4'096;
    static constexpr std::size_t bytesInBlock = std::size_t{64} << 10U;

    const char* keep(std::string_view name);

    /// Raw memory of `itemsInBlock` items each.
    std::vector<std::unique_ptr<std::byte[]>> blocks_;
    std::size_t count_ = 0;
    std::vector<std::unique_ptr<char[]>> names_;
    std::size_t nameBytesLeft_ = 0;
    char* nextName_ = nullptr;
    std::deque<ChildList> lists_;
    ChildList empty_;
    ChildList unreadable_{.isUnreadable = true};
};

}  // namespace orv

#include "backup/tree/ChildNames.h"

#include <algorithm>
#include <numeric>

#include "foundation/texts/CaseFolding.h"

namespace orv {

namespace {

/// Shorter lists are searched from the start.
constexpr std::size_t longList = 32;

bool isAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// Of texts whose rest may hold more than ASCII.
int compareFolded(std::string_view left, std::string_view right) {
    return quelm::FoldedCase(left).compare(quelm::FoldedCase(right));
}

void indexByName(ChildList& list) {
    list.byName.resize(list.items.size());
    std::iota(list.byName.begin(), list.byName.end(), 0U);
    std::ranges::stable_sort(list.byName, [&list](std::uint32_t a, std::uint32_t b) {
        return CompareWithoutCase(list.items[a]->relativePath(), list.items[b]->relativePath()) < 0;
    });
}

std::optional<std::size_t> findInIndex(const ChildList& list, std::string_view name) {
    const auto begin = std::ranges::partition_point(list.byName, [&](std::uint32_t position) {
        return CompareWithoutCase(list.items[position]->relativePath(), name) < 0;
    });
    for (auto at = begin; at != list.byName.end(); ++at) {
        const std::string_view other = list.items[*at]->relativePath();
        if (other == name) return *at;
        if (CompareWithoutCase(other, name) != 0) break;
    }
    if (begin == list.byName.end() ||
        CompareWithoutCase(list.items[*begin]->relativePath(), name) != 0) {
        return std::nullopt;
    }
    return *begin;
}

std::optional<std::size_t> findFromStart(const ChildList& list, std::string_view name) {
    const auto& items = list.items;
    auto found = std::ranges::find(items, name, &orv_FileSystemItem::relativePath);
    if (found == items.end()) {
        found = std::ranges::find_if(items, [name](const orv_FileSystemItem* item) {
            return CompareWithoutCase(item->relativePath(), name) == 0;
        });
    }
    if (found == items.end()) return std::nullopt;
    return found - items.begin();
}

}  // namespace

int CompareWithoutCase(std::string_view left, std::string_view right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (!isAscii(left[i]) || !isAscii(right[i]))
            return compareFolded(left.substr(i), right.substr(i));
        const int difference = quelm::FoldCase(left[i]) - quelm::FoldCase(right[i]);
        if (difference != 0) return difference;
    }
    if (left.size() == right.size()) return 0;
    return left.size() < right.size() ? -1 : 1;
}

std::optional<std::size_t> FindChildByName(ChildList& list, std::string_view name) {
    if (list.items.size() < longList) return findFromStart(list, name);
    if (list.byName.empty()) indexByName(list);
    return findInIndex(list, name);
}

}  // namespace orv

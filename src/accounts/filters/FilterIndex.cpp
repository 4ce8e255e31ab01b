#include "accounts/filters/FilterIndex.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "foundation/texts/CaseFolding.h"

namespace orv {

namespace {

constexpr std::size_t keySize = sizeof(std::uint64_t);

std::string folded(std::string_view text) {
    std::string copy(text);
    std::ranges::transform(copy, copy.begin(),
                           [](char c) { return static_cast<char>(quelm::FoldCase(c)); });
    return copy;
}

/// Folds eight bytes at once: a byte's high bit is set where it is an ASCII capital, and 0x20 is
/// added there.
std::uint64_t foldEight(std::uint64_t bytes) {
    constexpr std::uint64_t each = 0x0101010101010101;
    constexpr std::uint64_t high = 0x80 * each;
    const std::uint64_t low = bytes & ~high;
    const std::uint64_t fromA = low + (0x80 - 'A') * each;
    const std::uint64_t behindZ = low + (0x7F - 'Z') * each;
    const std::uint64_t capitals = fromA & ~behindZ & ~bytes & high;
    return bytes | (capitals >> 2);
}

/// The last `length` bytes of the text, at most eight, folded, in a number; no byte is zero, so
/// that different texts have different numbers.
std::uint64_t keyOfEnd(std::string_view text, std::size_t length) {
    if (length == 0) return 0;
    std::uint64_t bytes = 0;
    if (text.size() >= keySize) {
        std::memcpy(&bytes, text.data() + text.size() - keySize, keySize);
    } else {
        for (std::size_t i = 0; i < text.size(); ++i)
            bytes |= std::uint64_t{static_cast<unsigned char>(text[i])}
                     << (8 * (keySize - text.size() + i));
    }
    return foldEight(bytes >> (8 * (keySize - length)));
}
static_assert(std::endian::native == std::endian::little);

}  // namespace

std::size_t ExtensionTable::slotOf(std::uint64_t key) const {
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;
    std::size_t slot = (key * spread) >> shift_;
    while (slots_[slot].number != none && slots_[slot].key != key)
        slot = (slot + 1) & (slots_.size() - 1);
    return slot;
}

void ExtensionTable::grow() {
    const auto before = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
    --shift_;
    for (const Slot& slot : before) {
        if (slot.number != none) slots_[slotOf(slot.key)] = slot;
    }
}

void ExtensionTable::add(std::string_view extension, std::uint32_t number) {
    if (extension.size() > keySize) {
        longer_.try_emplace(folded(extension), number);
        longest_ = std::max(longest_, extension.size());
        return;
    }
    const std::uint64_t key = keyOfEnd(extension, extension.size());
    Slot& slot = slots_[slotOf(key)];
    if (slot.number != none) return;
    slot = {key, number};
    if (++used_ * 4 > slots_.size()) grow();
}

std::uint32_t ExtensionTable::findLong(std::string_view extension) const {
    if (extension.size() > longest_) return none;
    const auto found = longer_.find(folded(extension));
    return found != longer_.end() ? found->second : none;
}

std::uint32_t ExtensionTable::find(std::string_view name) const {
    // the C library's search takes many bytes at once, unlike the standard library's
    const auto* const dot = static_cast<const char*>(memrchr(name.data(), '.', name.size()));
    if (dot == nullptr) return none;
    const std::size_t length = name.size() - static_cast<std::size_t>(dot - name.data()) - 1;
    if (length > keySize) return findLong(name.substr(name.size() - length));
    return slots_[slotOf(keyOfEnd(name, length))].number;
}

namespace {

/// The byte that a matching name has at its end or at its start, folded; none when that may vary.
std::optional<unsigned char> boundByte(const orv_FilenameFilter& filter, bool last) {
    const std::string& pattern = filter.comparedPattern();
    const FilterFunction function = filter.function();
    if (function == (last ? FilterFunctionPrefix : FilterFunctionSuffix)) return std::nullopt;
    const char byte = last ? pattern.back() : pattern.front();
    // a final "]" may end a set; any other final byte of a set is that of one without an end,
    // which is plain text
    const bool varies = std::string_view(last ? "*?\\]" : "*?\\[").find(byte) != std::string::npos;
    if (function == FilterFunctionFnmatch && varies) return std::nullopt;
    return quelm::FoldCase(byte);
}

void mark(std::array<std::uint64_t, 256>& masks, std::optional<unsigned char> byte,
          std::uint64_t bit) {
    if (byte) {
        masks[*byte] |= bit;
    } else {
        for (auto& mask : masks)
            mask |= bit;
    }
}

}  // namespace

void FilterIndex::add(const orv_FilenameFilter& filter, std::uint32_t number) {
    if (all_ != none) return;
    const std::string_view pattern = filter.comparedPattern();
    if (filter.function() == FilterFunctionAll) {
        all_ = number;
    } else if (filter.function() == FilterFunctionSuffix && pattern.rfind('.') == 0) {
        extensions_.add(pattern.substr(1), number);
    } else {
        addOther(filter, number);
    }
}

void FilterIndex::addOther(const orv_FilenameFilter& filter, std::uint32_t number) {
    const std::size_t place = otherCount_++ % blockSize;
    if (place == 0) others_.emplace_back();
    Block& block = others_.back();
    const std::uint64_t bit = std::uint64_t{1} << place;
    mark(block.byFirst, boundByte(filter, false), bit);
    mark(block.byLast, boundByte(filter, true), bit);
    block.numbers[place] = number;
}

std::uint32_t FilterIndex::firstOf(const Block& block,
                                   const std::vector<orv_FilenameFilter>& filters,
                                   std::string_view name, std::uint32_t before) {
    std::uint64_t candidates =
        block.byFirst[quelm::FoldCase(name.front())] & block.byLast[quelm::FoldCase(name.back())];
    for (; candidates != 0; candidates &= candidates - 1) {
        const auto number = block.numbers[static_cast<std::size_t>(std::countr_zero(candidates))];
        if (number >= before) return before;
        const auto length = static_cast<std::uint32_t>(name.size());
        if (filters[number].isIncluded(name.data(), length)) return number;
    }
    return before;
}

std::uint32_t FilterIndex::firstMatch(const std::vector<orv_FilenameFilter>& filters,
                                      std::string_view name) const {
    if (name.empty()) {
        // only stars in a shell pattern match it, which has no first byte to look up
        const auto matches = [](const auto& filter) { return filter.isIncluded("", 0); };
        const auto found = std::ranges::find_if(filters, matches);
        return found != filters.end() ? static_cast<std::uint32_t>(found - filters.begin()) : none;
    }
    const std::uint32_t first = std::min(extensions_.find(name), all_);
    for (const Block& block : others_) {
        if (block.numbers.front() >= first) break;
        const std::uint32_t found = firstOf(block, filters, name, first);
        if (found != first) return found;
    }
    return first;
}

}  // namespace orv

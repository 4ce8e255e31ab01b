#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quelm {

namespace detail {

/// 16 bytes that the processor works on at once; a language extension of GCC and Clang.
using Block [[gnu::vector_size(16)]] = signed char;

[[nodiscard]] inline bool anySet(Block block) {
    std::array<std::uint64_t, 2> halves;
    std::memcpy(halves.data(), &block, sizeof block);
    return (halves[0] | halves[1]) != 0;
}

/// Whether the predicate takes any of the next `Blocks` * 16 bytes.
template <std::size_t Blocks, typename Predicate>
[[nodiscard]] bool anyIn(const signed char* bytes, Predicate suspects) {
    Block found = {};
    for (std::size_t i = 0; i < Blocks; ++i) {
        Block block;
        std::memcpy(&block, bytes + i * sizeof block, sizeof block);
        found |= suspects(block);
    }
    return anySet(found);
}

}  // namespace detail

/// The index of the first byte at or after `pos` that `picks`; the text's size without one.
/// `suspects` may take more bytes for candidates, where that is cheaper to tell. Both are generic
/// and use only operators that also work on many bytes at once: `|`, not `||`, no conversions.
template <typename Suspects, typename Picks>
[[nodiscard]] std::size_t FindByte(std::string_view text, std::size_t pos, Suspects suspects,
                                   Picks picks) {
    const auto* bytes = reinterpret_cast<const signed char*>(text.data());
    const auto pickIn = [&](std::size_t end) {
        while (pos < end && !picks(bytes[pos]))
            ++pos;
        return pos < end;
    };
    constexpr std::size_t small = sizeof(detail::Block);
    constexpr std::size_t large = 4 * small;
    while (pos + large <= text.size()) {
        if (!detail::anyIn<4>(bytes + pos, suspects)) {
            pos += large;
        } else if (pickIn(pos + large)) {
            return pos;
        }
    }
    while (pos + small <= text.size()) {
        if (!detail::anyIn<1>(bytes + pos, suspects)) {
            pos += small;
        } else if (pickIn(pos + small)) {
            return pos;
        }
    }
    // the last bytes as a block that begins in what was seen already
    const bool hasBlock = text.size() >= small;
    if (hasBlock && !detail::anyIn<1>(bytes + text.size() - small, suspects)) {
        return text.size();
    }
    pickIn(text.size());
    return pos;
}

template <typename Picks>
[[nodiscard]] std::size_t FindByte(std::string_view text, std::size_t pos, Picks picks) {
    return FindByte(text, pos, picks, picks);
}

}  // namespace quelm

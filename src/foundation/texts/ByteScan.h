#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quelm {

namespace detail {

/// 16 bytes that the processor works on at once; a language extension of GCC and Clang.
using Block [[gnu::vector_size(16)]] = signed char;

[[nodiscard]] inline Block blockAt(const signed char* bytes) {
    Block block;
    std::memcpy(&block, bytes, sizeof block);
    return block;
}

/// The index of the first byte that is set; 16 without one.
[[nodiscard]] inline std::size_t firstSet(Block block) {
    static_assert(std::endian::native == std::endian::little);
    std::array<std::uint64_t, 2> halves;
    std::memcpy(halves.data(), &block, sizeof block);
    const auto bits =
        halves[0] != 0 ? std::countr_zero(halves[0]) : 64 + std::countr_zero(halves[1]);
    return static_cast<std::size_t>(bits) / 8;
}

/// Whether the predicate takes any of the next `Blocks` * 16 bytes.
template <std::size_t Blocks, typename Predicate>
[[nodiscard]] bool anyIn(const signed char* bytes, Predicate suspects) {
    Block found = {};
    for (std::size_t i = 0; i < Blocks; ++i)
        found |= suspects(blockAt(bytes + i * sizeof found));
    return firstSet(found) < sizeof found;
}

}  // namespace detail

/// The index of the first byte at or after `pos` that `picks`; the text's size without one.
/// `suspects` may take more bytes for candidates, where that is cheaper to tell. Both are generic
/// and use only operators that also work on many bytes at once: `|`, not `||`, no conversions.
template <typename Suspects, typename Picks>
[[nodiscard]] std::size_t FindByte(std::string_view text, std::size_t pos, Suspects suspects,
                                   Picks picks) {
    const auto* bytes = reinterpret_cast<const signed char*>(text.data());
    constexpr std::size_t small = sizeof(detail::Block);
    constexpr std::size_t large = 4 * small;
    // most runs are short: what looks at four blocks at once begins behind the first four
    const std::size_t far = pos + large;
    while (pos + small <= text.size()) {
        if (pos >= far && pos + large <= text.size() && !detail::anyIn<4>(bytes + pos, suspects)) {
            pos += large;
            continue;
        }
        const std::size_t found = detail::firstSet(picks(detail::blockAt(bytes + pos)));
        pos += found;
        if (found < small) return pos;
    }
    // the last bytes as a block that begins in what was seen already
    if (text.size() >= small && !detail::anyIn<1>(bytes + text.size() - small, suspects)) {
        return text.size();
    }
    while (pos < text.size() && !picks(bytes[pos]))
        ++pos;
    return pos;
}

template <typename Picks>
[[nodiscard]] std::size_t FindByte(std::string_view text, std::size_t pos, Picks picks) {
    return FindByte(text, pos, picks, picks);
}

}  // namespace quelm

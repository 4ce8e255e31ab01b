#pragma once

#include <array>
#include <cstddef>

namespace orv {

namespace detail {
inline constexpr auto foldedBytes = [] {
    std::array<unsigned char, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        const bool capital = byte >= 'A' && byte <= 'Z';
        table[byte] = static_cast<unsigned char>(capital ? byte - 'A' + 'a' : byte);
    }
    return table;
}();
}  // namespace detail

/// An ASCII capital in lower case, any other byte as it is. The C library's functions follow the
/// locale, which would make a filter's meaning depend on who started the program.
constexpr unsigned char FoldCase(char byte) {
    return detail::foldedBytes[static_cast<unsigned char>(byte)];
}

constexpr bool EqualsWithoutCase(const char* a, const char* b, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        if (FoldCase(a[i]) != FoldCase(b[i])) return false;
    }
    return true;
}

}  // namespace orv

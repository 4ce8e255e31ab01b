#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace quelm {

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
/// locale, which would make what matches depend on who started the program.
constexpr unsigned char FoldCase(char byte) {
    return detail::foldedBytes[static_cast<unsigned char>(byte)];
}

/// Byte for byte, but for the case of ASCII letters.
constexpr bool EqualsWithoutCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (FoldCase(a[i]) != FoldCase(b[i])) return false;
    }
    return true;
}

/// The text in lower case, character by character as Unicode has it, to compare and sort by. Bytes
/// that are not UTF-8 stay.
[[nodiscard]] std::string FoldedCase(std::string_view text);

}  // namespace quelm

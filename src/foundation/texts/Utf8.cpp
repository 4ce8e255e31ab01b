#include "foundation/texts/Utf8.h"

#include <utf8proc.h>

#include "foundation/texts/ByteScan.h"

namespace quelm {

std::size_t DecodeCharFromUtf8String(std::string_view text) {
    if (text.empty()) return 0;
    utf8proc_int32_t character = 0;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &character);
    return length > 0 ? static_cast<std::size_t>(length) : 0;
}

namespace {

constexpr auto isNotAscii = [](auto c) { return c < 0; };
constexpr auto needsLook = [](auto c) {
    return (c < 0x20) & (c != '\t') & (c != '\n') & (c != '\r');
};

constexpr auto anyCharacter = [](std::string_view) { return true; };
// U+FFFE and U+FFFF
constexpr auto isNoNonCharacter = [](std::string_view character) {
    return !character.starts_with("\xEF\xBF") || static_cast<unsigned char>(character[2]) < 0xBE;
};

/// Valid when every byte that `stopsAt` picks begins a valid character of several bytes that
/// `isAllowed`.
bool isValid(std::string_view text, auto stopsAt, auto isAllowed) {
    std::size_t pos = FindByte(text, 0, stopsAt);
    while (pos < text.size()) {
        if (static_cast<signed char>(text[pos]) >= 0) return false;
        const std::size_t length = DecodeCharFromUtf8String(text.substr(pos));
        if (length == 0 || !isAllowed(text.substr(pos, length))) return false;
        pos += length;
        // other scripts come in runs
        if (pos < text.size() && static_cast<signed char>(text[pos]) < 0) continue;
        pos = FindByte(text, pos, stopsAt);
    }
    return true;
}

}  // namespace

bool IsValidUtf8(std::string_view text) {
    return isValid(text, isNotAscii, anyCharacter);
}
bool IsXmlText(std::string_view text) {
    return isValid(text, needsLook, isNoNonCharacter);
}

}  // namespace quelm

#include "foundation/texts/Utf16.h"

#include <array>
#include <utf8proc.h>

namespace quelm {

namespace {

utf8proc_int32_t unitAt(std::string_view units, std::size_t pos, ByteOrder order) {
    const unsigned first = static_cast<unsigned char>(units[pos]);
    const unsigned second = static_cast<unsigned char>(units[pos + 1]);
    const bool isBig = order == ByteOrder::BigEndian;
    return static_cast<utf8proc_int32_t>(isBig ? first << 8U | second : second << 8U | first);
}

bool isHighSurrogate(utf8proc_int32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(utf8proc_int32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

std::optional<std::string> Utf8FromUtf16(std::string_view units, ByteOrder order) {
    if (units.size() % 2 != 0) return std::nullopt;
    std::string text;
    for (std::size_t pos = 0; pos < units.size(); pos += 2) {
        utf8proc_int32_t character = unitAt(units, pos, order);
        if (isHighSurrogate(character) && pos + 2 < units.size() &&
            isLowSurrogate(unitAt(units, pos + 2, order))) {
            pos += 2;
            character =
                0x10000 + (character - 0xD800) * 0x400 + (unitAt(units, pos, order) - 0xDC00);
        }
        if (!utf8proc_codepoint_valid(character)) return std::nullopt;
        std::array<utf8proc_uint8_t, 4> encoded;
        const auto length = utf8proc_encode_char(character, encoded.data());
        text.append(reinterpret_cast<const char*>(encoded.data()),
                    static_cast<std::size_t>(length));
    }
    return text;
}

}  // namespace quelm

#include "foundation/texts/Base64.h"

#include <array>
#include <cstdint>

namespace quelm {

namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::uint8_t noDigit = 255;

constexpr std::array<std::uint8_t, 256> makeReverse() {
    std::array<std::uint8_t, 256> reverse = {};
    reverse.fill(noDigit);
    for (std::size_t i = 0; i < alphabet.size(); ++i) {
        reverse[static_cast<unsigned char>(alphabet[i])] = static_cast<std::uint8_t>(i);
    }
    return reverse;
}
constexpr std::array<std::uint8_t, 256> reverseAlphabet = makeReverse();

constexpr std::string_view whiteSpace = " \t\r\n";

}  // namespace

std::string EncodeBase64(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t pos = 0; pos < bytes.size(); pos += 3) {
        const std::string_view group = bytes.substr(pos, 3);
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            bits = bits << 8U | (i < group.size() ? static_cast<unsigned char>(group[i]) : 0U);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            text += i <= group.size() ? alphabet[bits >> (18 - 6 * i) & 63U] : '=';
        }
    }
    return text;
}

std::optional<std::string> DecodeBase64(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t bits = 0;
    std::size_t digits = 0;
    std::size_t padding = 0;
    for (const char c : text) {
        if (whiteSpace.find(c) != std::string_view::npos) continue;
        if (c == '=') {
            ++padding;
            continue;
        }
        const std::uint8_t digit = reverseAlphabet[static_cast<unsigned char>(c)];
        if (digit == noDigit || padding != 0) return std::nullopt;
        bits = bits << 6U | digit;
        if (++digits % 4 != 1) bytes += static_cast<char>(bits >> (8 - digits % 4 * 2) % 8 & 255U);
    }
    const bool complete = digits % 4 != 1 && padding == (4 - digits % 4) % 4;
    return complete ? std::optional(std::move(bytes)) : std::nullopt;
}

}  // namespace quelm

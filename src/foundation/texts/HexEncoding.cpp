#include "foundation/texts/HexEncoding.h"

#include <cstdio>

namespace quelm {

namespace {

std::string_view asText(const void* bytes, std::size_t length) {
    return {static_cast<const char*>(bytes), length};
}

std::string_view asText(const unsigned char* begin, const unsigned char* end) {
    return asText(begin, static_cast<std::size_t>(end - begin));
}

}  // namespace

std::string HexEncodeBytes(const void* bytes, std::size_t length) {
    return CHexEncoding::Encode(asText(bytes, length));
}

std::string CHexEncoding::Encode(std::string_view bytes) {
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}

std::string CHexEncoding::Encode(const unsigned char* begin, const unsigned char* end) {
    return Encode(asText(begin, end));
}

std::string CHexEncoding::Decode(std::string_view text) {
    std::string bytes;
    bytes.reserve((text.size() + 1) / 2);
    unsigned value = 0;
    for (std::size_t pos = 0; pos < text.size(); pos += 2) {
        const char pair[] = {text[pos], pos + 1 < text.size() ? text[pos + 1] : '\0', '\0'};
        // a pair without digits leaves the value as it was
        static_cast<void>(std::sscanf(pair, "%02x", &value));
        bytes += static_cast<char>(value & 0xFFU);
    }
    return bytes;
}

std::string CHexEncoding::Decode(const unsigned char* begin, const unsigned char* end) {
    return Decode(asText(begin, end));
}

}  // namespace quelm

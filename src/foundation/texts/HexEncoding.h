#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quelm {

/// Two lower-case hexadecimal digits for each byte.
[[nodiscard]] std::string HexEncodeBytes(const void* bytes, std::size_t length);

class CHexEncoding {
 public:
    [[nodiscard]] static std::string Encode(std::string_view bytes);
    [[nodiscard]] static std::string Encode(const unsigned char* begin, const unsigned char* end);

    /// For text that Encode wrote. What is no digit is not reported: its two characters yield the
    /// byte before once more, 0 at the beginning. An odd last character is read as one digit.
    [[nodiscard]] static std::string Decode(std::string_view text);
    [[nodiscard]] static std::string Decode(const unsigned char* begin, const unsigned char* end);
};

}  // namespace quelm

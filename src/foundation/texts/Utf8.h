#pragma once

#include <cstddef>
#include <string_view>

namespace quelm {

/// The length in bytes of the character that the text begins with, 1 to 4; 0 when the text is
/// empty or its beginning is not valid UTF-8.
[[nodiscard]] std::size_t DecodeCharFromUtf8String(std::string_view text);

[[nodiscard]] bool IsValidUtf8(std::string_view text);

/// Whether an XML 1.0 document can hold the text: valid UTF-8 without control characters other
/// than tab, line feed and carriage return.
[[nodiscard]] bool IsXmlText(std::string_view text);

}  // namespace quelm

#pragma once

#include <string>
#include <string_view>

namespace quelm {

/// XML-safe text: entities for the five special characters and, with `escapeControls`, "%HEX;" for
/// "%", blanks and control characters. From the first byte that is not valid UTF-8 the rest keeps
/// its special characters, and only bytes of 128 and above become "%HH;".
[[nodiscard]] std::string EscapeString(std::string_view text, bool escapeControls);
[[nodiscard]] std::string EscapeString(std::string_view text);
[[nodiscard]] std::string EscapeXmlString(std::string_view text);

/// Reverses it. A "%" that begins no "%HEX;" stays; a value of 256 or more leaves the whole text
/// as it is.
[[nodiscard]] std::string UnescapeString(std::string_view text);

}  // namespace quelm

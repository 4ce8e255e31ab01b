#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quelm {

/// RFC 4648, section 4, with padding, in one line.
[[nodiscard]] std::string EncodeBase64(std::string_view bytes);

/// White space is skipped; none for any other character outside the alphabet, and for text that
/// ends within a byte.
[[nodiscard]] std::optional<std::string> DecodeBase64(std::string_view text);

}  // namespace quelm

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quelm {

/// The 16 bytes of the digest; none where the system's cryptographic policy bars MD5. For
/// identifiers only, never for security.
[[nodiscard]] std::optional<std::string> Md5(std::string_view bytes);

}  // namespace quelm

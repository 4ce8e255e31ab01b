#pragma once

#include <string>
#include <string_view>

namespace quelm {

/// Writes a file beside it and puts that in its place, so that a reader sees the old content or the
/// new; mode 0600. False with errno, and the old file, on failure. A link is replaced, not
/// followed.
[[nodiscard]] bool ReplaceFile(const std::string& path, std::string_view content);

}  // namespace quelm

#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace platform {

/// The first `limit` bytes of a file, or all of a shorter one. None when it cannot be read; errno
/// says why.
[[nodiscard]] std::optional<std::string> ReadFileStart(const std::string& path, std::size_t limit);

}  // namespace platform

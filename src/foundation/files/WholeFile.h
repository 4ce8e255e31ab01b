#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quelm {

/// The bytes of a regular file, which is not made or changed, under a shared lock that is waited
/// for. None with errno: EISDIR or EINVAL for what is no regular file, EFBIG beyond the limit.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t limit);

}  // namespace quelm

#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quelm {

enum class FileLock {
    /// What somebody is just writing may be read half.
    None,
    /// Is waited for.
    Shared,
};

/// The bytes of a regular file, which is not made or changed. None with errno: EISDIR or EINVAL for
/// what is no regular file, EFBIG beyond the limit.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t limit,
                                                       FileLock lock = FileLock::Shared);

}  // namespace quelm

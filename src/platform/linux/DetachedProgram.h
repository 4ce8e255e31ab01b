#pragma once

#include <string>
#include <vector>

namespace platform {

/// Starts a program, by path or by name in PATH, with its arguments: in a session of its own, with
/// /dev/null for its streams and no other descriptor. Nothing is left of it when it ends, and
/// nobody waits for that. 0, or the error for which it was not started. Any thread.
[[nodiscard]] int StartDetached(const std::vector<std::string>& words);

}  // namespace platform

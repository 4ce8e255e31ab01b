#pragma once

#include <string>

namespace orv {

/// Whether the path lies on a volume that is not there now: it is below a folder of mounted volumes
/// (locations::volumeFolders), which does not hold the volume. The path itself need not exist.
[[nodiscard]] bool IsPathOffline(const std::string& path);

}  // namespace orv

#pragma once

#include <string_view>

namespace platform {

/// Whether a file system type, as the mount table names it, keeps its files on another machine.
[[nodiscard]] bool IsNetworkFileSystem(std::string_view type);

/// Whether it shows the kernel's or a service's state instead of files (proc, sysfs). One that
/// keeps files in memory (tmpfs) does not.
[[nodiscard]] bool IsPseudoFileSystem(std::string_view type);

}  // namespace platform

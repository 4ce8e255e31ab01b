#pragma once

#include <string>

namespace quelm {

/// The running system's name and version ("Debian GNU/Linux 12"): "ProductName" and
/// "ProductVersion" of /System/Library/CoreServices/SystemVersion.plist where that file exists,
/// else NAME and VERSION_ID of os-release(5); "<unknown>" when a file or a key is missing.
[[nodiscard]] std::string GetSystemVersion();

/// Whether the running system's version is at least this one; false when it cannot be read.
[[nodiscard]] bool IsSystemVersion(int major, int minor, int bugfix);

}  // namespace quelm

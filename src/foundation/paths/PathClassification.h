#pragma once

#include <string>
#include <string_view>

namespace orv {

enum EVolumeType : unsigned {
    VOLUME_UNKNOWN = 0,
    VOLUME_INTERNAL = 1,
    VOLUME_EXTERNAL = 2,
    VOLUME_NETWORK = 3,
    VOLUME_READ_ONLY = 4,
};

/// Whether the path belongs to the system, or to the user's own applications and library.
/// Everything whose text begins like one of their folders counts ("/SystemX").
[[nodiscard]] bool IsSystemPath(std::string_view path);

/// Whether the volume is local that holds the path or, where that does not exist, its nearest
/// parent that does. NO, with a log line, when the volume cannot be told; NO for a relative path
/// of which nothing exists.
[[nodiscard]] bool isLocalPath(std::string path);

/// Whether the path's text begins with the environment's HOME and goes on: "/home/bobby" counts as
/// inside "/home/bob". NO without a home.
[[nodiscard]] bool isInsideUserHome(std::string_view path);

/// An EVolumeType. A device name that does not begin with "/dev/" is a network address.
[[nodiscard]] unsigned GetVolumeType(const std::string& deviceName);

}  // namespace orv

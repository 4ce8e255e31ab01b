#pragma once

#include <optional>
#include <string>

#include "platform/linux/Sysfs.h"

namespace platform {

/// Whether a block device's disk is built into the machine: not when its medium can be taken out
/// or it hangs on a bus that leaves the case. A mapped device is where all its parts are. Unknown
/// for what has no hardware (loop).
[[nodiscard]] std::optional<bool> IsInternalDisk(const Sysfs& sysfs, const std::string& folder);

}  // namespace platform

#pragma once

#include <optional>
#include <string>

namespace platform {

/// What udev has noted about a device under a key ("ID_SERIAL_SHORT"); none where no udev runs.
/// Any thread.
[[nodiscard]] std::optional<std::string> UdevProperty(const std::string& deviceFolder,
                                                      const char* key);

}  // namespace platform

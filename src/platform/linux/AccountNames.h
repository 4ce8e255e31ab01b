#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// The name of a user or group by its number; empty where the system knows none. Any thread.
[[nodiscard]] std::string UserName(std::uint32_t id);
[[nodiscard]] std::string GroupName(std::uint32_t id);

}  // namespace platform

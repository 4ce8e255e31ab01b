#pragma once

#include <functional>
#include <optional>
#include <string>

namespace platform {

/// The raw bytes of a network interface's permanent address; none when it has none.
using HardwareAddressLookup = std::function<std::optional<std::string>(const std::string& name)>;

/// Asks the interface's driver. Needs no rights.
[[nodiscard]] std::optional<std::string> PermanentHardwareAddress(const std::string& name);

/// The bytes of "02:00:5e:10:00:01"; none for anything else.
[[nodiscard]] std::optional<std::string> ParseHardwareAddress(const std::string& text);

/// Whether it is six bytes and not all zero.
[[nodiscard]] bool IsHardwareAddress(const std::string& bytes);

}  // namespace platform

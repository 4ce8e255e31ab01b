#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Value.h"

namespace quelm {

/// The hardware (MAC) address of the primary network interface; none without one.
[[nodiscard]] std::optional<Data> HardwareId();

/// The computer's id as it may be shown and sent: 32 digits, made from the address by MD5. NO
/// without an address; `id` is then unchanged.
[[nodiscard]] bool GetHardwareId(std::string& id);

// Serial numbers are text, cut between characters or digit pairs where the buffer of `size` bytes
// is too small, and end in a NUL whatever the answer, except in a buffer of 0 bytes (NO).

/// The serial number of a device or of the nearest one above it that has one; `bsdName` as in
/// "sda1".
[[nodiscard]] bool GetBsdDeviceSerialNumber(std::string_view bsdName, char* buffer,
                                            std::size_t size);
/// The same for the device that holds the volume of an existing path.
[[nodiscard]] bool GetVolumeSerialNumber(const std::string& path, char* buffer, std::size_t size);

/// Replaces `volumes` with the sorted mount points of the volumes on devices with exactly this
/// serial number.
void GetVolumesForSerialNumber(std::string_view serial, std::vector<std::string>& volumes);

}  // namespace quelm

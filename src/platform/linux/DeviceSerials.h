#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The serial number that a disk or controller itself publishes. None for a partition, which has
/// its disk's, and for a USB device, which has its own kind.
[[nodiscard]] std::optional<std::string> DeviceSerial(const std::string& deviceFolder);

/// The serial number of a USB device; none for anything else.
[[nodiscard]] std::optional<std::string> UsbSerial(const std::string& deviceFolder);

/// The unique id of a mapped device, of an array or of a partition.
[[nodiscard]] std::optional<std::string> DeviceUuid(const std::string& deviceFolder);

/// The world-wide id of a disk.
[[nodiscard]] std::optional<std::string> WorldWideId(const std::string& deviceFolder);

/// The text of a SCSI "unit serial number" page (80h): a header of four bytes, the last two the
/// text's length.
[[nodiscard]] std::optional<std::string> ParseUnitSerialPage(std::string_view page);

}  // namespace platform

#pragma once

#include <string>

namespace orv {

/// What tells this computer and its account apart, as it is shown.
struct DeviceInfo {
    std::string accountId;
    /// With its prefix, "Cell: ...".
    std::string cellName;
    std::string deviceId;
    std::string hardwareId;
};

/// For support; every line ends in a line feed.
[[nodiscard]] std::string DeviceInfoText(const DeviceInfo& info);
/// "DeviceID:..." in one line without an end.
[[nodiscard]] std::string DeviceIdText(const DeviceInfo& info);

class orvAgentSettings;
/// Of an account's settings.
[[nodiscard]] DeviceInfo DeviceInfoOf(const orvAgentSettings& settings,
                                      const std::string& hardwareId);
/// This computer's; empty without a network interface. May wait for the disk; any thread.
[[nodiscard]] std::string HardwareIdText();

}  // namespace orv

#include "pane/settings/DeviceInfo.h"

#include <fmt/format.h>

#include "config/AgentSettings.h"
#include "config/ProductVersion.h"
#include "foundation/system/DeviceIdentity.h"
#include "foundation/system/LocalizedString.h"

namespace orv {

// support's tools read these texts, so they are in no translation

std::string DeviceInfoText(const DeviceInfo& info) {
    return fmt::format(
        "Device version: {}-{} {}\nProtocol version:{}\nAccount ID:{}\n{}\nDeviceID:{}\n"
        "HardwareID:{}\n",
        product::version, product::prefix, product::buildDate, product::protocolVersion,
        info.accountId, info.cellName, info.deviceId, info.hardwareId);
}

std::string DeviceIdText(const DeviceInfo& info) {
    return "DeviceID:" + info.deviceId;
}

DeviceInfo DeviceInfoOf(const orvAgentSettings& settings, const std::string& hardwareId) {
    return {.accountId = settings.userId().value_or(""),
            .cellName = quelm::FormatLocalizedString("PrefPane.Cell", "Cell: %@",
                                                     {settings.cellName().value_or("")}),
            .deviceId = settings.rcid(),
            .hardwareId = hardwareId};
}

std::string HardwareIdText() {
    std::string id;
    static_cast<void>(quelm::GetHardwareId(id));
    return id;
}

}  // namespace orv

#include "platform/linux/DeviceSerials.h"

#include <initializer_list>

#include "platform/linux/Sysfs.h"
#include "platform/linux/UdevDatabase.h"

namespace platform {

namespace {

using Text = std::optional<std::string>;

Text firstAttribute(const std::string& folder, std::initializer_list<const char*> names) {
    for (const char* name : names) {
        if (auto text = ReadAttribute(folder, name)) return text;
    }
    return std::nullopt;
}

Text unitSerial(const std::string& folder) {
    for (const char* name : {"vpd_pg80", "device/vpd_pg80"}) {
        const auto page = ReadRawAttribute(folder, name);
        if (auto text = page ? ParseUnitSerialPage(*page) : std::nullopt) return text;
    }
    return std::nullopt;
}

/// The value of a "KEY=value" line of what the kernel says of a device.
Text kernelProperty(const std::string& folder, std::string_view key) {
    const std::string lines = "\n" + ReadRawAttribute(folder, "uevent").value_or("");
    const std::string wanted = "\n" + std::string(key) + "=";
    const std::size_t at = lines.find(wanted);
    if (at == std::string::npos) return std::nullopt;
    const std::size_t start = at + wanted.size();
    return CleanText(std::string_view(lines).substr(start, lines.find('\n', start) - start));
}

bool isUsbDevice(const std::string& folder) {
    return HasFile(folder, "idVendor");
}
bool isPartition(const std::string& folder) {
    return HasFile(folder, "partition");
}

}  // namespace

Text DeviceSerial(const std::string& deviceFolder) {
    if (isPartition(deviceFolder) || isUsbDevice(deviceFolder)) return std::nullopt;
    if (auto serial = firstAttribute(deviceFolder, {"serial", "device/serial"})) return serial;
    if (auto serial = unitSerial(deviceFolder)) return serial;
    return UdevProperty(deviceFolder, "ID_SERIAL_SHORT");
}

Text UsbSerial(const std::string& deviceFolder) {
    return isUsbDevice(deviceFolder) ? ReadAttribute(deviceFolder, "serial") : std::nullopt;
}

Text DeviceUuid(const std::string& deviceFolder) {
    if (auto uuid = firstAttribute(deviceFolder, {"dm/uuid", "md/uuid"})) return uuid;
    if (!isPartition(deviceFolder)) return std::nullopt;
    if (auto uuid = kernelProperty(deviceFolder, "PARTUUID")) return uuid;
    return UdevProperty(deviceFolder, "ID_PART_ENTRY_UUID");
}

Text WorldWideId(const std::string& deviceFolder) {
    return firstAttribute(deviceFolder, {"wwid", "device/wwid"});
}

Text ParseUnitSerialPage(std::string_view page) {
    constexpr std::size_t headerLength = 4;
    constexpr char pageCode = '\x80';
    if (page.size() <= headerLength || page[1] != pageCode) return std::nullopt;
    const auto byteAt = [page](std::size_t at) { return static_cast<unsigned char>(page[at]); };
    return CleanText(page.substr(headerLength, byteAt(2) * 256U + byteAt(3)));
}

}  // namespace platform

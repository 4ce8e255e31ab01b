#include "platform/linux/DiskLocation.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace platform {

namespace {

constexpr int deepestStack = 8;  // as deep as the kernel stacks mapped devices
constexpr auto externalBuses =
    std::to_array<std::string_view>({"usb", "fw", "firewire", "thunderbolt"});

bool isExternalBus(std::string_view device) {
    return std::ranges::any_of(externalBuses, [device](std::string_view bus) {
        return device.starts_with(bus) && device.size() > bus.size() && device[bus.size()] >= '0' &&
               device[bus.size()] <= '9';
    });
}

/// The kernel marks what sits behind a port that leaves the case, as a tunnelled PCI bus does.
bool hangsOutside(const Sysfs& sysfs, const std::string& disk) {
    for (auto device = sysfs.parentDevice(disk); device; device = sysfs.parentDevice(*device)) {
        if (isExternalBus(LastComponent(*device))) return true;
        if (ReadAttribute(*device, "removable") == "removable") return true;
    }
    return false;
}

std::optional<bool> isInternal(const Sysfs& sysfs, const std::string& folder, int depth);

std::optional<bool> areAllInternal(const Sysfs& sysfs, const std::vector<std::string>& names,
                                   int depth) {
    std::optional<bool> all = true;
    for (const auto& name : names) {
        const auto part = sysfs.blockFolder(name);
        const auto internal = part ? isInternal(sysfs, *part, depth - 1) : std::nullopt;
        if (internal == false) return false;
        if (!internal) all = std::nullopt;
    }
    return all;
}

std::optional<bool> isInternal(const Sysfs& sysfs, const std::string& folder, int depth) {
    if (depth == 0) return std::nullopt;
    const std::string disk = WholeDisk(folder);
    if (const auto parts = NamesIn(disk + "/slaves"); !parts.empty()) {
        return areAllInternal(sysfs, parts, depth);
    }
    if (ReadNumber(disk, "removable") == 1U || hangsOutside(sysfs, disk)) return false;
    if (!sysfs.parentDevice(disk)) return std::nullopt;
    return true;
}

}  // namespace

std::optional<bool> IsInternalDisk(const Sysfs& sysfs, const std::string& folder) {
    return isInternal(sysfs, folder, deepestStack);
}

}  // namespace platform

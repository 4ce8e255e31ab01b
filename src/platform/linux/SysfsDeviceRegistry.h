#pragma once

#include <string>
#include <vector>

#include "platform/DeviceRegistry.h"
#include "platform/Services.h"
#include "platform/linux/HardwareAddress.h"
#include "platform/linux/OnceReporter.h"
#include "platform/linux/Sysfs.h"

namespace platform {

/// Devices as the kernel's tree shows them; an entry is a device folder's canonical path. Where the
/// address look-up has no answer, the interface's present address counts if it is the permanent
/// one.
class SysfsDeviceRegistry final : public DeviceRegistry {
 public:
    explicit SysfsDeviceRegistry(const std::string& sysfsRoot = "/sys",
                                 HardwareAddressLookup addressOf = PermanentHardwareAddress,
                                 Reporter reporter = {});

    [[nodiscard]] std::vector<Entry> matching(std::string_view serviceClass,
                                              const quelm::Dictionary& propertyMatch) override;
    [[nodiscard]] std::optional<Entry> entryForBsdName(std::string_view bsdName) override;
    [[nodiscard]] std::optional<Entry> parent(const Entry& entry) override;
    [[nodiscard]] std::optional<quelm::Value> property(const Entry& entry,
                                                       std::string_view name) override;

 private:
    struct ClassRow;
    struct PropertyRow;
    static const ClassRow classes_[];
    static const PropertyRow properties_[];

    [[nodiscard]] std::vector<Entry> physicalInterfaces() const;
    [[nodiscard]] std::vector<Entry> blockDevices() const;
    [[nodiscard]] std::optional<quelm::Value> isPrimaryInterface(const Entry& interface) const;
    [[nodiscard]] std::optional<quelm::Value> controllerAddress(const Entry& controller) const;
    [[nodiscard]] std::optional<std::string> interfaceAddress(const Entry& interface) const;

    Sysfs sysfs_;
    HardwareAddressLookup addressOf_;
    OnceReporter absent_;
};

}  // namespace platform

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Value.h"

namespace platform {

/// The tree of devices, each with properties and a parent. Property names are those of the
/// prescribed look-ups ("Serial Number", "IOMACAddress"); an adapter maps what its system calls
/// them. Any thread.
class DeviceRegistry {
 public:
    /// Opaque; valid while the device is there.
    using Entry = std::string;

    virtual ~DeviceRegistry() = default;

    /// Devices of a class ("IOEthernetInterface", "IOMedia") whose properties equal those given,
    /// in the system's order.
    [[nodiscard]] virtual std::vector<Entry> matching(std::string_view serviceClass,
                                                      const quelm::Dictionary& propertyMatch) = 0;
    /// `bsdName` without "/dev/" ("sda1").
    [[nodiscard]] virtual std::optional<Entry> entryForBsdName(std::string_view bsdName) = 0;
    [[nodiscard]] virtual std::optional<Entry> parent(const Entry& entry) = 0;
    [[nodiscard]] virtual std::optional<quelm::Value> property(const Entry& entry,
                                                               std::string_view name) = 0;
};

}  // namespace platform

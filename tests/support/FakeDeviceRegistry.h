#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/DeviceRegistry.h"

namespace test_support {

/// A tree of devices that the test plants, in the order of planting.
class FakeDeviceRegistry final : public platform::DeviceRegistry {
 public:
    struct Device {
        Entry entry;
        std::string serviceClass;
        std::optional<Entry> parent;
        /// "BSD Name" among them is what `entryForBsdName` finds.
        quelm::Dictionary properties;
    };

    std::vector<Device> devices;

    std::vector<Entry> matching(std::string_view serviceClass,
                                const quelm::Dictionary& propertyMatch) override {
        std::vector<Entry> entries;
        for (const auto& device : devices) {
            const bool matches = std::ranges::all_of(propertyMatch, [&](const auto& wanted) {
                return property(device.entry, wanted.key) == wanted.value;
            });
            if (matches && device.serviceClass == serviceClass) entries.push_back(device.entry);
        }
        return entries;
    }

    std::optional<Entry> entryForBsdName(std::string_view bsdName) override {
        const auto found = std::ranges::find_if(devices, [&](const Device& device) {
            return property(device.entry, "BSD Name") == quelm::Value(bsdName);
        });
        return found != devices.end() ? std::optional(found->entry) : std::nullopt;
    }

    std::optional<Entry> parent(const Entry& entry) override {
        const auto found = std::ranges::find(devices, entry, &Device::entry);
        return found != devices.end() ? found->parent : std::nullopt;
    }

    std::optional<quelm::Value> property(const Entry& entry, std::string_view name) override {
        const auto found = std::ranges::find(devices, entry, &Device::entry);
        const auto* const value = found != devices.end() ? found->properties.find(name) : nullptr;
        return value ? std::optional(*value) : std::nullopt;
    }
};

}  // namespace test_support

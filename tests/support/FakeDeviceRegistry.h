#pragma once

#include <algorithm>
#include <string>
#include <utility>
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
                const auto* const value = device.properties.find(wanted.key);
                return value && *value == wanted.value;
            });
            if (matches && device.serviceClass == serviceClass) entries.push_back(device.entry);
        }
        return entries;
    }

    std::optional<Entry> entryForBsdName(std::string_view bsdName) override {
        for (const auto& device : devices) {
            const auto* const name = device.properties.find("BSD Name");
            if (name && *name == quelm::Value(bsdName)) return device.entry;
        }
        return std::nullopt;
    }

    std::optional<Entry> parent(const Entry& entry) override {
        const auto* const device = find(entry);
        return device ? device->parent : std::nullopt;
    }

    std::optional<quelm::Value> property(const Entry& entry, std::string_view name) override {
        const auto* const device = find(entry);
        const auto* const value = device ? device->properties.find(name) : nullptr;
        return value ? std::optional(*value) : std::nullopt;
    }

 private:
    const Device* find(const Entry& entry) const {
        const auto found = std::ranges::find(devices, entry, &Device::entry);
        return found != devices.end() ? &*found : nullptr;
    }
};

}  // namespace test_support

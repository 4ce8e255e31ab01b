#include "platform/linux/SysfsDeviceRegistry.h"

#include <algorithm>
#include <utility>

#include "platform/linux/DeviceSerials.h"

namespace platform {

namespace {

using quelm::Value;

constexpr unsigned ethernetType = 1;         // ARPHRD_ETHER
constexpr unsigned permanentAssignment = 0;  // NET_ADDR_PERM

bool isPhysicalEthernet(const std::string& interface) {
    return ReadNumber(interface, "type") == ethernetType && HasFile(interface, "device");
}

template <auto Read>
std::optional<Value> textProperty(const std::string& entry) {
    if (auto text = Read(entry)) return Value(std::move(*text));
    return std::nullopt;
}

std::optional<std::string> bsdName(const std::string& entry) {
    if (!HasFile(entry, "dev") || !HasFile(entry, "ro")) return std::nullopt;
    return LastComponent(entry);
}

}  // namespace

struct SysfsDeviceRegistry::ClassRow {
    std::string_view name;
    std::vector<Entry> (SysfsDeviceRegistry::*list)() const;
};

struct SysfsDeviceRegistry::PropertyRow {
    using Read = std::optional<Value> (*)(const SysfsDeviceRegistry&, const Entry&);
    std::string_view name;
    Read read;
};

const SysfsDeviceRegistry::ClassRow SysfsDeviceRegistry::classes_[] = {
    {"IOEthernetInterface", &SysfsDeviceRegistry::physicalInterfaces},
    {"IOMedia", &SysfsDeviceRegistry::blockDevices},
};

const SysfsDeviceRegistry::PropertyRow SysfsDeviceRegistry::properties_[] = {
    {"BSD Name", [](const auto&, const Entry& entry) { return textProperty<bsdName>(entry); }},
    {"GUID", [](const auto&, const Entry& entry) { return textProperty<WorldWideId>(entry); }},
    {"IOMACAddress",
     [](const auto& self, const Entry& entry) { return self.controllerAddress(entry); }},
    {"IOPrimaryInterface",
     [](const auto& self, const Entry& entry) { return self.isPrimaryInterface(entry); }},
    {"Serial Number",
     [](const auto&, const Entry& entry) { return textProperty<DeviceSerial>(entry); }},
    {"USB Serial Number",
     [](const auto&, const Entry& entry) { return textProperty<UsbSerial>(entry); }},
    {"UUID", [](const auto&, const Entry& entry) { return textProperty<DeviceUuid>(entry); }},
};

SysfsDeviceRegistry::SysfsDeviceRegistry(const std::string& sysfsRoot,
                                         HardwareAddressLookup addressOf, Reporter reporter)
    : sysfs_(sysfsRoot), addressOf_(std::move(addressOf)), absent_(std::move(reporter)) {
    if (!sysfs_.present()) {
        absent_.report("There is no device tree at " + sysfsRoot +
                       ": no devices are known. Mount the sysfs file system there.");
    }
}

std::vector<DeviceRegistry::Entry> SysfsDeviceRegistry::matching(
    std::string_view serviceClass, const quelm::Dictionary& propertyMatch) {
    const auto* const row = std::ranges::find(classes_, serviceClass, &ClassRow::name);
    if (row == std::end(classes_)) return {};
    auto entries = (this->*row->list)();
    std::erase_if(entries, [&](const Entry& entry) {
        return std::ranges::any_of(propertyMatch, [&](const quelm::DictionaryEntry& wanted) {
            return property(entry, wanted.key) != wanted.value;
        });
    });
    return entries;
}

std::optional<DeviceRegistry::Entry> SysfsDeviceRegistry::entryForBsdName(
    std::string_view bsdName) {
    if (!IsPlainName(bsdName)) return std::nullopt;
    if (auto entry = sysfs_.blockFolder(bsdName)) return entry;
    return sysfs_.mappedBlockFolder(bsdName);
}

std::optional<DeviceRegistry::Entry> SysfsDeviceRegistry::parent(const Entry& entry) {
    return sysfs_.parentDevice(entry);
}

std::optional<Value> SysfsDeviceRegistry::property(const Entry& entry, std::string_view name) {
    const auto* const row = std::ranges::find(properties_, name, &PropertyRow::name);
    if (row == std::end(properties_) || !sysfs_.holds(entry)) return std::nullopt;
    return row->read(*this, entry);
}

std::vector<DeviceRegistry::Entry> SysfsDeviceRegistry::physicalInterfaces() const {
    auto entries = sysfs_.classFolders("net");
    std::erase_if(entries, [](const Entry& entry) { return !isPhysicalEthernet(entry); });
    std::ranges::stable_sort(
        entries, {}, [](const Entry& entry) { return ReadNumber(entry, "ifindex").value_or(~0U); });
    return entries;
}

std::vector<DeviceRegistry::Entry> SysfsDeviceRegistry::blockDevices() const {
    return sysfs_.classFolders("block");
}

std::optional<Value> SysfsDeviceRegistry::isPrimaryInterface(const Entry& interface) const {
    const auto all = physicalInterfaces();
    if (std::ranges::find(all, interface) == all.end()) return std::nullopt;
    return Value(interface == all.front());
}

std::optional<Value> SysfsDeviceRegistry::controllerAddress(const Entry& controller) const {
    for (const auto& interface : physicalInterfaces()) {
        if (sysfs_.parentDevice(interface) != controller) continue;
        if (auto address = interfaceAddress(interface)) {
            return Value(quelm::Data{std::move(*address)});
        }
    }
    return std::nullopt;
}

std::optional<std::string> SysfsDeviceRegistry::interfaceAddress(const Entry& interface) const {
    auto address = addressOf_ ? addressOf_(LastComponent(interface)) : std::nullopt;
    if (address && IsHardwareAddress(*address)) return address;
    if (ReadNumber(interface, "addr_assign_type") != permanentAssignment) return std::nullopt;
    address = ParseHardwareAddress(ReadAttribute(interface, "address").value_or(""));
    if (address && IsHardwareAddress(*address)) return address;
    return std::nullopt;
}

}  // namespace platform

#include "foundation/system/DeviceIdentity.h"

#include <algorithm>
#include <array>
#include <set>

#include "foundation/paths/Paths.h"
#include "foundation/system/Md5.h"
#include "foundation/texts/HexEncoding.h"
#include "platform/Services.h"

namespace quelm {

using platform::DeviceRegistry;
using platform::ProcessServices;

namespace {

/// Empty when the device has no address.
Data addressOf(DeviceRegistry& devices, const DeviceRegistry::Entry& interface) {
    const auto controller = devices.parent(interface);
    const auto address = controller ? devices.property(*controller, "IOMACAddress") : std::nullopt;
    const Data* bytes = address ? address->asData() : nullptr;
    return bytes != nullptr ? *bytes : Data{};
}

}  // namespace

std::optional<Data> HardwareId() {
    auto* devices = ProcessServices().devices.get();
    if (devices == nullptr) return std::nullopt;
    const Dictionary primary = {{"IOPrimaryInterface", true}};
    for (const auto& interface : devices->matching("IOEthernetInterface", primary)) {
        Data address = addressOf(*devices, interface);
        if (!address.bytes.empty()) return address;
    }
    return std::nullopt;
}

bool GetHardwareId(std::string& id) {
    const auto address = HardwareId();
    const auto digest = address ? Md5(CHexEncoding::Encode(address->bytes)) : std::nullopt;
    if (digest) id = CHexEncoding::Encode(*digest);
    return digest.has_value();
}

namespace {

constexpr std::array<std::string_view, 4> serialProperties = {"UUID", "Serial Number",
                                                              "USB Serial Number", "GUID"};

/// Far deeper than any tree of devices; ends the walk in one that loops.
constexpr int maxLevels = 64;

std::optional<Value> FindSerialNumber(DeviceRegistry& devices,
                                      std::optional<DeviceRegistry::Entry> entry) {
    for (int level = 0; entry && level < maxLevels; ++level) {
        for (const auto name : serialProperties) {
            if (auto serial = devices.property(*entry, name)) return serial;
        }
        entry = devices.parent(*entry);
    }
    return std::nullopt;
}

std::string_view cutBetweenCharacters(std::string_view text, std::size_t limit) {
    const auto continuesCharacter = [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
    };
    if (text.size() <= limit) return text;
    while (limit > 0 && continuesCharacter(text[limit]))
        --limit;
    return text.substr(0, limit);
}

/// At most `limit` bytes; none for a value that is neither text nor bytes.
std::optional<std::string> serialText(const std::optional<Value>& serial,
                                      std::size_t limit = std::string::npos) {
    if (!serial) return std::nullopt;
    if (const auto* text = serial->asString()) {
        return std::string(cutBetweenCharacters(*text, limit));
    }
    if (const auto* data = serial->asData()) {
        return CHexEncoding::Encode(std::string_view(data->bytes).substr(0, limit / 2));
    }
    return std::nullopt;
}

}  // namespace

bool GetBsdDeviceSerialNumber(std::string_view bsdName, char* buffer, std::size_t size) {
    if (size == 0) return false;
    buffer[0] = '\0';
    auto* devices = ProcessServices().devices.get();
    if (devices == nullptr) return false;
    const auto serial =
        serialText(FindSerialNumber(*devices, devices->entryForBsdName(bsdName)), size - 1);
    if (!serial) return false;
    buffer[serial->copy(buffer, size - 1)] = '\0';
    return true;
}

bool GetVolumeSerialNumber(const std::string& path, char* buffer, std::size_t size) {
    if (size == 0) return false;
    buffer[0] = '\0';
    auto* volumes = ProcessServices().volumes.get();
    if (volumes == nullptr) return false;
    const auto volume = volumes->volumeOf(path).volume;
    return volume && volume->local &&
           GetBsdDeviceSerialNumber(GetLastPathComponent(volume->device), buffer, size);
}

namespace {

std::set<std::string> devicesWithSerial(DeviceRegistry& devices, std::string_view serial) {
    std::set<std::string> found;
    for (const auto& entry : devices.matching("IOMedia", {})) {
        const auto property = devices.property(entry, "BSD Name");
        const auto* name = property ? property->asString() : nullptr;
        if (name != nullptr && serialText(FindSerialNumber(devices, entry)) == serial) {
            found.insert("/dev/" + *name);
        }
    }
    return found;
}

}  // namespace

void GetVolumesForSerialNumber(std::string_view serial, std::vector<std::string>& volumes) {
    const auto& services = ProcessServices();
    std::vector<std::string> found;
    if (services.devices && services.volumes) {
        const auto devices = devicesWithSerial(*services.devices, serial);
        for (const auto& volume : services.volumes->mounted()) {
            if (devices.contains(volume.device)) found.push_back(volume.mountPoint);
        }
    }
    std::ranges::sort(found);
    volumes = std::move(found);
}

}  // namespace quelm

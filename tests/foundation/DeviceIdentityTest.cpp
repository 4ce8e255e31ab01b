#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

#include "foundation/system/DeviceIdentity.h"
#include "foundation/system/Md5.h"
#include "platform/Services.h"

namespace quelm {

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

struct Device {
    std::string serviceClass;
    std::string parent;
    Dictionary properties;
};

bool has(const Dictionary& properties, const Dictionary& wanted) {
    return std::all_of(wanted.begin(), wanted.end(), [&](const DictionaryEntry& entry) {
        const Value* value = properties.find(entry.key);
        return value != nullptr && *value == entry.value;
    });
}

class FakeDevices : public platform::DeviceRegistry {
 public:
    std::vector<Entry> matching(std::string_view serviceClass,
                                const Dictionary& propertyMatch) override {
        std::vector<Entry> found;
        for (const auto& [entry, device] : devices) {
            if (device.serviceClass == serviceClass && has(device.properties, propertyMatch)) {
                found.push_back(entry);
            }
        }
        return found;
    }
    std::optional<Entry> entryForBsdName(std::string_view bsdName) override {
        const auto found = matching("IOMedia", {{"BSD Name", std::string(bsdName)}});
        return found.empty() ? std::nullopt : std::optional(found.front());
    }
    std::optional<Entry> parent(const Entry& entry) override {
        const auto found = devices.find(entry);
        if (found == devices.end() || found->second.parent.empty()) return std::nullopt;
        return found->second.parent;
    }
    std::optional<Value> property(const Entry& entry, std::string_view name) override {
        const auto found = devices.find(entry);
        const Value* value = found != devices.end() ? found->second.properties.find(name) : nullptr;
        return value != nullptr ? std::optional(*value) : std::nullopt;
    }

    std::map<Entry, Device> devices;
};

class FakeVolumes : public platform::Volumes {
 public:
    std::vector<platform::Volume> mounted() override { return volumes; }
    Lookup volumeOf(const std::string& path) override {
        for (const auto& volume : volumes) {
            if (volume.mountPoint == path) return {volume, ""};
        }
        return {std::nullopt, "not mounted"};
    }
    std::optional<platform::DiskDescription> diskDescription(const std::string&) override {
        return std::nullopt;
    }

    std::vector<platform::Volume> volumes;
};

platform::Volume volumeOn(const std::string& mountPoint, const std::string& device) {
    platform::Volume volume;
    volume.mountPoint = mountPoint;
    volume.device = device;
    return volume;
}

class DeviceIdentity : public testing::Test {
 protected:
    DeviceIdentity() {
        auto registry = std::make_unique<FakeDevices>();
        devices = &registry->devices;
        platform::ProcessServices().devices = std::move(registry);
        auto table = std::make_unique<FakeVolumes>();
        volumes = &table->volumes;
        platform::ProcessServices().volumes = std::move(table);
    }
    ~DeviceIdentity() override { platform::ProcessServices() = {}; }

    void addMedia(const std::string& bsdName, const std::string& parent,
                  std::vector<DictionaryEntry> properties = {}) {
        properties.push_back({"BSD Name", bsdName});
        (*devices)[bsdName] = {"IOMedia", parent, Dictionary(std::move(properties))};
    }

    std::map<std::string, Device>* devices = nullptr;
    std::vector<platform::Volume>* volumes = nullptr;
};

/// The answer for a buffer of `size` bytes; "NO" without one. What lies behind is not touched.
std::string serialOf(std::string_view bsdName, std::size_t size = 64) {
    std::string buffer(size + 1, '#');
    const bool found = GetBsdDeviceSerialNumber(bsdName, buffer.data(), size);
    EXPECT_EQ(buffer.back(), '#');
    EXPECT_TRUE(size == 0 || buffer.find('\0') != std::string::npos);
    return found ? std::string(buffer.c_str()) : "NO";
}

TEST(Md5, GivesTheKnownDigests) {
    EXPECT_EQ(Md5(""), "\xd4\x1d\x8c\xd9\x8f\x00\xb2\x04\xe9\x80\x09\x98\xec\xf8\x42\x7e"s);
    EXPECT_EQ(Md5("abc"), "\x90\x01\x50\x98\x3c\xd2\x4f\xb0\xd6\x96\x3f\x7d\x28\xe1\x7f\x72"s);
}

TEST_F(DeviceIdentity, TheHardwareIdIsTheFirstAddressAboveAPrimaryInterface) {
    const Dictionary primary = {{"IOPrimaryInterface", true}};
    const Data address{"\x00\x1b\x63\x84\x45\xe6"s};
    *devices = {
        {"eth0", {"IOEthernetInterface", "pci0", {{"IOPrimaryInterface", false}}}},
        {"eth1", {"IOEthernetInterface", "pci1", primary}},
        {"eth2", {"IOEthernetInterface", "pci2", primary}},
        {"eth3", {"IOEthernetInterface", "", primary}},
        {"pci0", {"IOController", "", {{"IOMACAddress", Data{"000000"}}}}},
        {"pci1", {"IOController", "", {{"IOMACAddress", "no bytes"}}}},
        {"pci2", {"IOController", "", {{"IOMACAddress", address}}}},
        {"wlan0", {"IOWirelessInterface", "pci0", primary}},
    };
    EXPECT_EQ(HardwareId(), address);
    std::string id;
    EXPECT_TRUE(GetHardwareId(id));
    // printf 001b638445e6 | md5sum
    EXPECT_EQ(id, "48629a466a7031404c84852807582ed1");
}

TEST_F(DeviceIdentity, AComputerWithoutAPrimaryInterfaceHasNoHardwareId) {
    std::string id = "as it was";
    EXPECT_FALSE(GetHardwareId(id));
    (*devices)["eth0"] = {"IOEthernetInterface", "pci0", {{"IOPrimaryInterface", true}}};
    EXPECT_EQ(HardwareId(), std::nullopt);
    EXPECT_FALSE(GetHardwareId(id));
    platform::ProcessServices().devices.reset();
    EXPECT_FALSE(GetHardwareId(id));
    EXPECT_EQ(id, "as it was");
}

TEST_F(DeviceIdentity, TheFirstPresentPropertyOfTheNearestLevelIsTheSerialNumber) {
    (*devices)["bus"] = {"IOBus", "", {{"GUID", "bus"}}};
    (*devices)["disk"] = {"IODisk", "bus", {{"USB Serial Number", "usb"}, {"GUID", "guid"}}};
    addMedia("sda", "disk");
    addMedia("sda1", "sda");
    addMedia("sda2", "sda", {{"Serial Number", "own"}, {"GUID", "guid"}});
    addMedia("sda3", "sda", {{"UUID", "uuid"}, {"Serial Number", "own"}});
    addMedia("sda4", "bus");
    addMedia("sda5", "sda", {{"UUID", 12}});
    addMedia("sda6", "");
    EXPECT_EQ(serialOf("sda1"), "usb");
    EXPECT_EQ(serialOf("sda2"), "own");
    EXPECT_EQ(serialOf("sda3"), "uuid");
    EXPECT_EQ(serialOf("sda4"), "bus");
    EXPECT_EQ(serialOf("sda5"), "NO");
    EXPECT_EQ(serialOf("sda6"), "NO");
    EXPECT_EQ(serialOf("sdb"), "NO");
}

TEST_F(DeviceIdentity, TheSearchEndsAfter64LevelsAndSoInATreeThatLoops) {
    for (int i = 1; i < 65; ++i)
        addMedia(std::to_string(i), std::to_string(i + 1));
    addMedia("65", "", {{"UUID", "top"}});
    EXPECT_EQ(serialOf("2"), "top");
    EXPECT_EQ(serialOf("1"), "NO");
    addMedia("loop", "loop");
    EXPECT_EQ(serialOf("loop"), "NO");
}

TEST_F(DeviceIdentity, ASerialNumberIsCutBetweenCharactersOrDigitPairs) {
    addMedia("text", "", {{"UUID", "aü€𝄞"}});  // of 1, 2, 3 and 4 bytes
    addMedia("data", "", {{"UUID", Data{std::string(20, '\xA5')}}});
    addMedia("none", "", {{"UUID", ""}});
    const struct {
        std::string device;
        std::size_t size;
        std::string serial;
    } cases[] = {
        {"text", 0, "NO"},    {"text", 1, ""},   {"text", 2, "a"},   {"text", 3, "a"},
        {"text", 4, "aü"},    {"text", 6, "aü"}, {"text", 7, "aü€"}, {"text", 10, "aü€"},
        {"text", 11, "aü€𝄞"}, {"data", 0, "NO"}, {"data", 1, ""},    {"data", 2, ""},
        {"data", 3, "a5"},    {"data", 4, "a5"}, {"none", 8, ""},
    };
    for (const auto& [device, size, serial] : cases) {
        EXPECT_EQ(serialOf(device, size), serial) << device << ' ' << size;
    }
    EXPECT_EQ(serialOf("data", 33).size(), 32U);
    EXPECT_EQ(serialOf("data", 41).size(), 40U);
    EXPECT_EQ(serialOf("data", 64).size(), 40U);
}

TEST_F(DeviceIdentity, AVolumeHasTheSerialNumberOfItsDevice) {
    addMedia("sda1", "", {{"Serial Number", "S1"}});
    *volumes = {volumeOn("/", "/dev/sda1"), volumeOn("/plain", "sda1"),
                volumeOn("/tmp", "/dev/tmpfs")};
    char buffer[8] = "#######";
    for (const auto path : {"/", "/plain"}) {
        EXPECT_TRUE(GetVolumeSerialNumber(path, buffer, sizeof buffer)) << path;
        EXPECT_STREQ(buffer, "S1");
    }
    for (const auto path : {"/tmp", "/elsewhere"}) {
        EXPECT_FALSE(GetVolumeSerialNumber(path, buffer, sizeof buffer)) << path;
        EXPECT_STREQ(buffer, "");
    }
    EXPECT_FALSE(GetVolumeSerialNumber("/", buffer, 0));
}

TEST_F(DeviceIdentity, TheVolumesOfASerialNumberAreThoseOfEveryDeviceThatHasIt) {
    (*devices)["disk"] = {"IODisk", "", {{"Serial Number", "S1"}}};
    (*devices)["nameless"] = {"IOMedia", "disk", {}};
    addMedia("sda1", "disk");
    addMedia("sda2", "disk");
    addMedia("sdb1", "", {{"UUID", Data{"\x01\xFF"}}});
    *volumes = {volumeOn("/b", "/dev/sda2"), volumeOn("/other", "/dev/sdb1"),
                volumeOn("/a", "/dev/sda1"), volumeOn("/c", "/dev/sda1"),
                volumeOn("/far", "server:/sda1")};
    std::vector<std::string> found = {"S1"};
    GetVolumesForSerialNumber(found.front(), found);
    EXPECT_THAT(found, ElementsAre("/a", "/b", "/c"));
    GetVolumesForSerialNumber("01ff", found);
    EXPECT_THAT(found, ElementsAre("/other"));
    GetVolumesForSerialNumber("S", found);
    EXPECT_THAT(found, IsEmpty());
}

TEST_F(DeviceIdentity, WithoutTheServicesThereIsNoAnswer) {
    addMedia("sda1", "", {{"UUID", "S1"}});
    *volumes = {volumeOn("/", "/dev/sda1")};
    std::vector<std::string> found = {"/"};
    platform::ProcessServices().devices.reset();
    EXPECT_EQ(serialOf("sda1"), "NO");
    GetVolumesForSerialNumber("S1", found);
    EXPECT_THAT(found, IsEmpty());
    platform::ProcessServices().volumes.reset();
    char buffer[8] = "#######";
    EXPECT_FALSE(GetVolumeSerialNumber("/", buffer, sizeof buffer));
    EXPECT_STREQ(buffer, "");
}

}  // namespace

}  // namespace quelm

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "foundation/system/DeviceIdentity.h"
#include "platform/Services.h"
#include "support/FakeDeviceRegistry.h"
#include "support/FakeVolumes.h"

namespace {

using namespace quelm;

class DeviceIdentity : public testing::Test {
 protected:
    DeviceIdentity() {
        auto registry = std::make_unique<test_support::FakeDeviceRegistry>();
        devices = &registry->devices;
        platform::ProcessServices().devices = std::move(registry);
    }
    ~DeviceIdentity() override { platform::ProcessServices() = {}; }

    void addMedia(const std::string& bsdName, const std::optional<std::string>& parent,
                  std::vector<DictionaryEntry> properties = {}) const {
        properties.push_back({"BSD Name", bsdName});
        devices->push_back({bsdName, "IOMedia", parent, Dictionary(std::move(properties))});
    }

    std::vector<test_support::FakeDeviceRegistry::Device>* devices = nullptr;
};

/// The answer for a buffer of `size` bytes; "NO" without one. What lies behind is not touched.
std::string serialOf(std::string_view bsdName, std::size_t size = 64) {
    std::string buffer(size + 1, '#');
    const bool found = GetBsdDeviceSerialNumber(bsdName, buffer.data(), size);
    EXPECT_EQ(buffer.back(), '#');
    EXPECT_TRUE(size == 0 || buffer.find('\0') != std::string::npos);
    return found ? std::string(buffer.c_str()) : "NO";
}

TEST_F(DeviceIdentity, TheHardwareIdIsTheFirstAddressAboveAPrimaryInterface) {
    const Dictionary primary = {{"IOPrimaryInterface", true}};
    *devices = {
        {"eth0", "IOEthernetInterface", "pci0", {{"IOPrimaryInterface", false}}},
        {"eth1", "IOEthernetInterface", "pci1", primary},
        {"wlan0", "IOWirelessInterface", "pci0", primary},
        {"pci0", "IOController", {}, {{"IOMACAddress", Data{"000000"}}}},
        {"pci1", "IOController", {}, {{"IOMACAddress", "no bytes"}}},
        {"pci2", "IOController", {}, {{"IOMACAddress", Data{"\x1b\x63\x84\x45\xe6\xff"}}}},
    };
    std::string id = "as it was";
    EXPECT_FALSE(GetHardwareId(id));
    EXPECT_EQ(id, "as it was");
    devices->push_back({"eth3", "IOEthernetInterface", "pci2", primary});
    devices->push_back({"eth4", "IOEthernetInterface", "pci0", primary});
    EXPECT_TRUE(GetHardwareId(id));
    EXPECT_EQ(id, "81bc23db75cacff897a48e9662190a37");  // printf 1b638445e6ff | md5sum
}

TEST_F(DeviceIdentity, TheFirstPresentPropertyOfTheNearestLevelIsTheSerialNumber) {
    addMedia("bus", {}, {{"GUID", "bus"}});
    addMedia("disk", "bus", {{"GUID", "guid"}, {"USB Serial Number", "usb"}});
    addMedia("sda", "disk");
    addMedia("sda1", "sda");
    addMedia("sda2", "sda", {{"USB Serial Number", "usb"}, {"Serial Number", "own"}});
    addMedia("sda3", "sda", {{"Serial Number", "own"}, {"UUID", "uuid"}});
    addMedia("sda5", "sda", {{"UUID", 12}});
    addMedia("sda6", {});
    addMedia("loop", "loop");
    const std::pair<std::string, std::string> cases[] = {
        {"sda1", "usb"}, {"sda2", "own"}, {"sda3", "uuid"}, {"sda5", "NO"},
        {"sda6", "NO"},  {"sdb", "NO"},   {"loop", "NO"},
    };
    for (const auto& [device, serial] : cases)
        EXPECT_EQ(serialOf(device), serial) << device;
}

TEST_F(DeviceIdentity, ASerialNumberIsCutBetweenCharactersOrDigitPairs) {
    addMedia("text", {}, {{"UUID", "aü€𝄞"}});  // of 1, 2, 3 and 4 bytes
    addMedia("data", {}, {{"UUID", Data{std::string(20, '\xA5')}}});
    const std::tuple<std::string, std::size_t, std::string> cases[] = {
        {"text", 0, "NO"}, {"text", 1, ""},     {"text", 3, "a"},     {"text", 4, "aü"},
        {"text", 6, "aü"}, {"text", 10, "aü€"}, {"text", 11, "aü€𝄞"}, {"data", 0, "NO"},
        {"data", 1, ""},   {"data", 2, ""},     {"data", 3, "a5"},    {"data", 4, "a5"},
    };
    for (const auto& [device, size, serial] : cases)
        EXPECT_EQ(serialOf(device, size), serial) << device << ' ' << size;
    EXPECT_EQ(serialOf("data", 33).size(), 32U);
}

TEST_F(DeviceIdentity, VolumesAndSerialNumbersAreFoundFromOneAnother) {
    addMedia("sda", {}, {{"Serial Number", "S1"}});
    addMedia("sda1", "sda");
    addMedia("sda2", "sda");
    addMedia("sdb1", {}, {{"UUID", Data{"\x01\xFF"}}});
    devices->push_back({"nameless", "IOMedia", "sda", {}});
    auto table = std::make_unique<test_support::FakeVolumes>();
    table->volumes = {{"/b", "/dev/sda2", {}},    {"/other", "/dev/sdb1", {}},
                      {"/a", "/dev/sda1", {}},    {"/c", "/dev/sda1", {}},
                      {"/tmp", "/dev/tmpfs", {}}, {"/far", "far:/sda1", {}, false}};
    platform::ProcessServices().volumes = std::move(table);
    char buffer[8] = "#######";
    EXPECT_TRUE(GetVolumeSerialNumber("/a", buffer, sizeof buffer));
    EXPECT_STREQ(buffer, "S1");
    for (const auto* path : {"/tmp", "/far", "/elsewhere"})
        EXPECT_FALSE(GetVolumeSerialNumber(path, buffer, sizeof buffer)) << path;
    EXPECT_STREQ(buffer, "");
    EXPECT_FALSE(GetVolumeSerialNumber("/a", nullptr, 0));
    std::vector<std::string> found = {"as it was"};
    GetVolumesForSerialNumber("S1", found);
    EXPECT_THAT(found, testing::ElementsAre("/a", "/b", "/c"));
    GetVolumesForSerialNumber("01ff", found);
    EXPECT_THAT(found, testing::ElementsAre("/other"));
    platform::ProcessServices() = {};
    EXPECT_EQ(serialOf("sda"), "NO");
    EXPECT_FALSE(GetVolumeSerialNumber("/a", buffer, sizeof buffer));
}

}  // namespace

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sys/mount.h>

#include "platform/linux/DeviceSerials.h"
#include "platform/linux/SysfsDeviceRegistry.h"
#include "platform/linux/UdevDatabase.h"
#include "support/PrivateMounts.h"
#include "support/SysfsFolder.h"

namespace {

using platform::SysfsDeviceRegistry;
using quelm::Data;
using quelm::Dictionary;
using quelm::Value;
using test_support::SysfsFolder;

using Entries = std::vector<std::string>;

const Dictionary primaryOnly = {{"IOPrimaryInterface", true}};

class TheDeviceTree : public testing::Test {
 protected:
    SysfsDeviceRegistry registry() {
        return SysfsDeviceRegistry(sysfs_.root(), [this](const std::string& name) {
            const auto found = addresses_.find(name);
            return found != addresses_.end() ? std::optional(found->second) : std::nullopt;
        });
    }

    std::string addInterface(const std::string& controller, const std::string& name,
                             const SysfsFolder::Attributes& attributes, bool physical = true) {
        sysfs_.addDevice(controller);
        const std::string device = controller + "/net/" + name;
        const std::string entry = sysfs_.addDevice(device, "net", attributes);
        if (physical) sysfs_.addLink(device, "device", controller);
        return entry;
    }

    SysfsFolder sysfs_;
    std::map<std::string, std::string> addresses_;
};

TEST_F(TheDeviceTree, ListsPhysicalEthernetInterfacesByNumberTheFirstIsPrimary) {
    const auto third = addInterface("pci0/0:9", "eth0", {{"type", "1\n"}, {"ifindex", "10\n"}});
    const auto second = addInterface("pci0/0:8", "wlan0", {{"type", "1\n"}, {"ifindex", "9\n"}});
    addInterface("pci0/0:7", "ib0", {{"type", "32\n"}, {"ifindex", "2\n"}});
    addInterface("virtual", "veth0", {{"type", "1\n"}, {"ifindex", "3\n"}}, false);
    auto devices = registry();
    EXPECT_EQ(devices.matching("IOEthernetInterface", {}), (Entries{second, third}));
    EXPECT_EQ(devices.matching("IOEthernetInterface", primaryOnly), Entries{second});
    EXPECT_EQ(devices.property(third, "IOPrimaryInterface"), Value(false));
    EXPECT_EQ(devices.property(sysfs_.entry("pci0/0:9"), "IOPrimaryInterface"), std::nullopt);
    EXPECT_TRUE(devices.matching("IOSerialPort", {}).empty());
}

struct AddressCase {
    const char* what;
    std::optional<std::string> permanent;
    const char* address;
    const char* assignType;
    std::optional<std::string> expected;
};

TEST_F(TheDeviceTree, GivesTheControllerThePermanentAddressOfItsInterface) {
    const std::string zeros(6, '\0');
    const std::string bytes("\x02\0\x5e\x10\xAB\x01", 6);
    const std::vector<AddressCase> cases = {
        {"the driver's", bytes, "aa:aa:aa:aa:aa:aa\n", "3\n", bytes},
        {"the present one, which is permanent", std::nullopt, "02:00:5e:10:AB:01\n", "0\n", bytes},
        {"a driver's zeros are none", zeros, "02:00:5e:10:ab:01\n", "0\n", bytes},
        {"a random one is not permanent", std::nullopt, "02:00:5e:10:ab:01\n", "1\n", {}},
        {"zeros are none", std::nullopt, "00:00:00:00:00:00\n", "0\n", {}},
        {"no address", std::nullopt, "02:00:5e:10:ab\n", "0\n", {}},
        {"no digits", std::nullopt, "02:00:5e:1g:ab:01\n", "0\n", {}},
        {"no colons", std::nullopt, "02-00-5e-10-ab-01\n", "0\n", {}},
    };
    const auto interface = addInterface("pci0/0:3/virtio1", "eth0", {{"type", "1"}});
    sysfs_.addDevice("pci0/0:3");
    auto devices = registry();
    const auto controller = devices.parent(interface);
    ASSERT_EQ(controller, sysfs_.entry("pci0/0:3/virtio1")) << "net/ is no device";
    for (const auto& test : cases) {
        addresses_.clear();
        if (test.permanent) addresses_["eth0"] = *test.permanent;
        sysfs_.addDevice("pci0/0:3/virtio1/net/eth0",
                         {{"address", test.address}, {"addr_assign_type", test.assignType}});
        const auto found = devices.property(*controller, "IOMACAddress");
        const auto expected =
            test.expected ? std::optional<Value>(Data{*test.expected}) : std::nullopt;
        EXPECT_EQ(found, expected) << test.what;
    }
    EXPECT_EQ(devices.property(sysfs_.entry("pci0/0:3"), "IOMACAddress"), std::nullopt);
}

TEST_F(TheDeviceTree, FindsBlockDevicesByTheirNamesAndMappedOnesByTheirs) {
    const auto disk = sysfs_.addDevice("pci0/block/sda", "block", {{"dev", "8:0"}, {"ro", "0"}});
    const auto part = sysfs_.addDevice("pci0/block/sda/sda1", "block",
                                       {{"dev", "8:1"}, {"ro", "0"}, {"partition", "1"}});
    const auto mapped = sysfs_.addDevice(
        "virtual/block/dm-0", "block",
        {{"dev", "253:0"}, {"ro", "0"}, {"dm/name", "secret\n"}, {"dm/uuid", "CRYPT-1\n"}});
    auto devices = registry();
    EXPECT_EQ(devices.matching("IOMedia", {}), (Entries{mapped, disk, part}));
    EXPECT_EQ(devices.matching("IOMedia", {{"BSD Name", "sda1"}}), Entries{part});
    EXPECT_EQ(devices.entryForBsdName("sda"), disk);
    EXPECT_EQ(devices.entryForBsdName("secret"), mapped);
    EXPECT_EQ(devices.property(mapped, "UUID"), Value("CRYPT-1"));
    for (const std::string_view bad : {"", ".", "..", "/", "../block/sda", "sda/sda1", "sdz"}) {
        EXPECT_EQ(devices.entryForBsdName(bad), std::nullopt) << bad;
    }
}

TEST_F(TheDeviceTree, ReadsNothingOutsideItself) {
    sysfs_.addDevice("pci0", {{"serial", "S"}});
    test_support::TemporaryFolder outside;
    outside.makeFile("serial", "secret");
    std::filesystem::create_symlink(outside.path(), sysfs_.root() + "/class/block/evil");
    auto devices = registry();
    EXPECT_EQ(devices.entryForBsdName("evil"), std::nullopt);
    for (const std::string& entry :
         {outside.path(), sysfs_.entry("pci0/../.."), std::string(), sysfs_.root() + "/devices"}) {
        EXPECT_EQ(devices.property(entry, "Serial Number"), std::nullopt) << entry;
        EXPECT_EQ(devices.parent(entry), std::nullopt) << entry;
    }
}

struct SerialCase {
    const char* what;
    SysfsFolder::Attributes attributes;
    const char* property;
    std::optional<Value> expected;
};

std::string unitSerialPage(const std::string& text, char code = '\x80') {
    return std::string(1, '\0') + code + '\0' + static_cast<char>(text.size()) + text;
}

TEST_F(TheDeviceTree, PublishesSerialNumbersUnderTheirNames) {
    const std::vector<SerialCase> cases = {
        {"own", {{"serial", "  AB 12 \n"}}, "Serial Number", "AB 12"},
        {"the controller's", {{"device/serial", "NVME1\n"}}, "Serial Number", "NVME1"},
        {"SCSI page", {{"device/vpd_pg80", unitSerialPage("  WD-77 ")}}, "Serial Number", "WD-77"},
        {"page with more than its length",
         {{"device/vpd_pg80", unitSerialPage("WD") + "junk"}},
         "Serial Number",
         "WD"},
        {"another page", {{"device/vpd_pg80", unitSerialPage("WD", '\x83')}}, "Serial Number", {}},
        {"page without text", {{"device/vpd_pg80", unitSerialPage("")}}, "Serial Number", {}},
        {"blank", {{"serial", " \n"}, {"device/serial", "next"}}, "Serial Number", "next"},
        {"control characters", {{"serial", "A\x1b[31mB"}}, "Serial Number", {}},
        {"a partition's is its disk's", {{"partition", "1"}, {"serial", "X"}}, "Serial Number", {}},
        {"USB", {{"idVendor", "1d6b"}, {"serial", "U1\n"}}, "USB Serial Number", "U1"},
        {"USB has its own name", {{"idVendor", "1d6b"}, {"serial", "U1"}}, "Serial Number", {}},
        {"not USB", {{"serial", "S"}}, "USB Serial Number", {}},
        {"array", {{"md/uuid", "0:1\n"}}, "UUID", "0:1"},
        {"partition's id from the kernel",
         {{"partition", "1"}, {"uevent", "DEVNAME=sda1\nPARTUUID=12-34\nPARTN=1\n"}},
         "UUID",
         "12-34"},
        {"a disk has no partition id", {{"uevent", "PARTUUID=12-34\n"}}, "UUID", {}},
        {"world-wide id", {{"wwid", "eui.0025\n"}}, "GUID", "eui.0025"},
        {"SCSI world-wide id", {{"device/wwid", "naa.5000\n"}}, "GUID", "naa.5000"},
        {"unknown name", {{"serial", "S"}}, "serial", {}},
    };
    auto devices = registry();
    int number = 0;
    for (const auto& test : cases) {
        const auto entry = sysfs_.addDevice("pci0/d" + std::to_string(++number), test.attributes);
        EXPECT_EQ(devices.property(entry, test.property), test.expected) << test.what;
    }
}

TEST_F(TheDeviceTree, ReadsNoMoreThanAPageOfAnAttribute) {
    const auto entry = sysfs_.addDevice("pci0/d", {{"serial", std::string(100'000, 'x')}});
    EXPECT_EQ(registry().property(entry, "Serial Number"), Value(std::string(4096, 'x')));
}

TEST_F(TheDeviceTree, EndsBelowItsRootSoThatASearchUpwardsEnds) {
    std::ofstream(sysfs_.root() + "/devices/uevent") << "";
    sysfs_.addDevice("pci0/0:1/usb1/1-1/block/sda/sda1");
    sysfs_.addDevice("pci0/0:1/usb1/1-1/block/sda");
    sysfs_.addDevice("pci0/0:1/usb1/1-1");
    sysfs_.addDevice("pci0/0:1");
    auto devices = registry();
    Entries way;
    for (auto entry = devices.parent(sysfs_.entry("pci0/0:1/usb1/1-1/block/sda/sda1")); entry;
         entry = devices.parent(*entry)) {
        way.push_back(*entry);
    }
    EXPECT_EQ(way, (Entries{sysfs_.entry("pci0/0:1/usb1/1-1/block/sda"),
                            sysfs_.entry("pci0/0:1/usb1/1-1"), sysfs_.entry("pci0/0:1")}));
}

TEST(AMissingDeviceTree, IsSaidOnceAndHasNoDevices) {
    std::vector<std::string> lines;
    SysfsDeviceRegistry devices("/absent/sys", platform::PermanentHardwareAddress,
                                [&](const std::string& line) { lines.push_back(line); });
    EXPECT_TRUE(devices.matching("IOMedia", {}).empty());
    EXPECT_TRUE(devices.matching("IOEthernetInterface", {}).empty());
    EXPECT_EQ(devices.entryForBsdName("sda"), std::nullopt);
    EXPECT_EQ(devices.property("/absent/sys/devices/x", "Serial Number"), std::nullopt);
    EXPECT_EQ(lines.size(), 1U);
}

TEST(TheRunningSystemsDevices, NameEveryBlockDeviceSoThatItIsFoundAgain) {
    SysfsDeviceRegistry devices;
    const auto all = devices.matching("IOMedia", {});
    if (all.empty()) GTEST_SKIP() << "no block devices here";
    for (const auto& entry : all) {
        const auto name = devices.property(entry, "BSD Name");
        ASSERT_TRUE(name && name->asString()) << entry;
        EXPECT_EQ(devices.entryForBsdName(*name->asString()), entry);
    }
}

TEST(TheRunningSystemsDevices, HaveThePrimaryInterfacesAddress) {
    SysfsDeviceRegistry devices;
    const auto primary = devices.matching("IOEthernetInterface", primaryOnly);
    if (primary.empty()) GTEST_SKIP() << "no physical Ethernet interface here";
    ASSERT_EQ(primary.size(), 1U);
    const auto controller = devices.parent(primary.front());
    ASSERT_TRUE(controller);
    const auto address = devices.property(*controller, "IOMACAddress");
    const auto own = platform::PermanentHardwareAddress(
        std::filesystem::path(primary.front()).filename().string());
    if (!address) GTEST_SKIP() << "the interface has no permanent address";
    ASSERT_TRUE(address->asData());
    EXPECT_EQ(address->asData()->bytes.size(), 6U);
    if (own) {
        EXPECT_EQ(address->asData()->bytes, *own);
    }
}

TEST(TheRunningSystemsDevices, HaveNoAddressForANameThatIsNoInterface) {
    for (const std::string& name : {std::string(), std::string("absent0"), std::string(64, 'x')}) {
        EXPECT_EQ(platform::PermanentHardwareAddress(name), std::nullopt) << name;
    }
}

TEST(TheUdevDatabase, HasWhatTheDeviceTreeLacks) {
    if (const auto why = test_support::WhyNoPrivateMounts(); !why.empty()) GTEST_SKIP() << why;
    SysfsDeviceRegistry devices;
    std::string bare;
    for (const auto& entry : devices.matching("IOMedia", {})) {
        if (!devices.property(entry, "Serial Number")) bare = entry;
    }
    if (bare.empty()) GTEST_SKIP() << "every block device here has a serial number";
    const auto number = test_support::ContentOf(bare + "/dev");
    test_support::WithPrivateMounts([&] {
        ASSERT_EQ(::mount("none", "/run", "tmpfs", 0, nullptr), 0);
        std::filesystem::create_directories("/run/udev/data");
        std::ofstream("/run/udev/data/b" + number.substr(0, number.find('\n')))
            << "I:1\nE:ID_SERIAL_SHORT=FROM-UDEV\nE:ID_PART_ENTRY_UUID=not-a-partition\nV:1\n";
        EXPECT_EQ(devices.property(bare, "Serial Number"), Value("FROM-UDEV"));
        EXPECT_EQ(devices.property(bare, "UUID"), std::nullopt);
        EXPECT_EQ(platform::UdevProperty(bare, "ABSENT"), std::nullopt);
    });
}

}  // namespace

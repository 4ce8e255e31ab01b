#include <gtest/gtest.h>
#include <sys/mount.h>

#include "platform/linux/SysfsDeviceRegistry.h"
#include "support/PrivateMounts.h"
#include "support/SysfsFolder.h"

namespace {

using platform::SysfsDeviceRegistry;
using quelm::Value;
using test_support::SysfsFolder;

using Entries = std::vector<std::string>;

class TheDeviceTree : public testing::Test {
 protected:
    std::string addInterface(const std::string& controller, const std::string& name,
                             const SysfsFolder::Attributes& attributes) const {
        const std::string device = controller + "/net/" + name;
        sysfs_.addDevice(controller);
        sysfs_.addDevice(device, {{"type", "1\n"}, {"device", ""}}, "net");
        return sysfs_.addDevice(device, attributes);
    }

    SysfsFolder sysfs_;
    std::optional<std::string> permanent_;  // what the driver of every interface says
    SysfsDeviceRegistry devices_{sysfs_.path(), [this](const auto&) { return permanent_; }};
};

TEST_F(TheDeviceTree, ListsPhysicalEthernetInterfacesByNumberTheFirstIsPrimary) {
    const auto third = addInterface("pci0/0:9", "eth0", {{"ifindex", "10\n"}});
    const auto second = addInterface("pci0/0:8", "wlan0", {{"ifindex", "9\n"}});
    addInterface("pci0/0:7", "ib0", {{"ifindex", "2\n"}, {"type", "32\n"}});
    sysfs_.addDevice("virtual/net/veth0", {{"ifindex", "3\n"}, {"type", "1\n"}}, "net");
    EXPECT_EQ(devices_.matching("IOEthernetInterface", {}), (Entries{second, third}));
    EXPECT_EQ(devices_.matching("IOEthernetInterface", {{"IOPrimaryInterface", true}}),
              Entries{second});
    EXPECT_EQ(devices_.property(third, "IOPrimaryInterface"), Value(false));
}

TEST_F(TheDeviceTree, GivesTheControllerThePermanentAddressOfItsInterface) {
    const std::string bytes("\x02\0\x5e\x10\xAB\x01", 6);
    const struct {
        std::string what, address, assignType;
        std::optional<std::string> permanent = {};
        bool found = false;
    } cases[] = {
        {"the driver's", "aa:aa:aa:aa:aa:aa\n", "3\n", bytes, true},
        {"the present one, which is permanent", "02:00:5e:10:AB:01\n", "0\n", {}, true},
        {"zeros of the driver", "02:00:5e:10:ab:01\n", "0\n", std::string(6, '\0'), true},
        {"a random one", "02:00:5e:10:ab:01\n", "1\n"},
        {"zeros", "00:00:00:00:00:00\n", "0\n"},
        {"no digits", "02:00:5e:1g:ab:01\n", "0\n"},
    };
    const auto bus = sysfs_.addDevice("pci0/0:3");
    addInterface("pci0/0:3/virtio1", "eth0", {});
    for (const auto& [what, address, assignType, permanent, found] : cases) {
        permanent_ = permanent;
        sysfs_.addDevice("pci0/0:3/virtio1/net/eth0",
                         {{"address", address}, {"addr_assign_type", assignType}});
        const auto expected = found ? std::optional<Value>(quelm::Data{bytes}) : std::nullopt;
        EXPECT_EQ(devices_.property(bus + "/virtio1", "IOMACAddress"), expected) << what;
        EXPECT_EQ(devices_.property(bus, "IOMACAddress"), std::nullopt) << "not the controller";
    }
}

TEST_F(TheDeviceTree, FindsBlockDevicesByTheirNamesAndNothingOutsideItself) {
    const auto disk = sysfs_.addDevice("pci0/block/sda", {{"ro", "0"}}, "block");
    const auto part =
        sysfs_.addDevice("pci0/block/sda/sda1", {{"dev", "8:1"}, {"ro", ""}}, "block");
    const auto mapped = sysfs_.addDevice("virtual/block/dm-0", {{"dm/name", "secret\n"}}, "block");
    sysfs_.makeFile("serial", "secret");
    sysfs_.makeLink("class/block/evil", sysfs_.path());
    EXPECT_EQ(devices_.matching("IOMedia", {}), (Entries{mapped, disk, part}));
    EXPECT_EQ(devices_.matching("IOMedia", {{"BSD Name", "sda1"}}), Entries{part});
    EXPECT_EQ(devices_.entryForBsdName("sda"), disk);
    EXPECT_EQ(devices_.entryForBsdName("secret"), mapped);
    for (const std::string_view bad : {"", ".", "..", "/", "../block/sda", "sda/sda1", "evil"})
        EXPECT_EQ(devices_.entryForBsdName(bad), std::nullopt) << bad;
    for (const auto& entry : {sysfs_.path(), disk + "/../../../..", std::string()}) {
        EXPECT_EQ(devices_.property(entry, "Serial Number"), std::nullopt) << entry;
        EXPECT_EQ(devices_.parent(entry), std::nullopt) << entry;
    }
}

TEST_F(TheDeviceTree, PublishesSerialNumbersUnderTheirNames) {
    const char* const serial = "Serial Number";
    const std::string page("\0\x80\0\x06 WD-7 ", 10);
    const struct {
        std::string what, property;
        SysfsFolder::Attributes attributes;
        std::optional<Value> expected;
    } cases[] = {
        {"own first", serial, {{"serial", " A 1 \n"}, {"device/serial", "B"}}, "A 1"},
        {"then its", serial, {{"serial", " \n"}, {"device/serial", "B"}, {"vpd_pg80", page}}, "B"},
        {"then its page", serial, {{"device/vpd_pg80", page + "junk"}}, "WD-7"},
        {"another page", serial, {{"device/vpd_pg80", "??" + page.substr(2)}}, {}},
        {"control characters", serial, {{"serial", "A\x1b[31mB"}}, {}},
        {"a partition's is its disk's", serial, {{"partition", "1"}, {"serial", "X"}}, {}},
        {"USB", "USB Serial Number", {{"idVendor", "1d6b"}, {"serial", "U1\n"}}, "U1"},
        {"USB has its own name", serial, {{"idVendor", "1d6b"}, {"serial", "U1"}}, {}},
        {"mapped", "UUID", {{"dm/uuid", "CRYPT-1\n"}}, "CRYPT-1"},
        {"partition", "UUID", {{"partition", "1"}, {"uevent", "X=1\nPARTUUID=1-2\n"}}, "1-2"},
        {"no partition", "UUID", {{"uevent", "PARTUUID=1-2\n"}}, {}},
        {"world-wide id", "GUID", {{"wwid", "eui.0025\n"}}, "eui.0025"},
    };
    int number = 0;
    for (const auto& [what, property, attributes, expected] : cases) {
        const auto entry = sysfs_.addDevice("pci0/d" + std::to_string(++number), attributes);
        EXPECT_EQ(devices_.property(entry, property), expected) << what;
    }
}

TEST_F(TheDeviceTree, EndsBelowItsRootSoThatASearchUpwardsEnds) {
    sysfs_.makeFile("devices/uevent");
    const auto port = sysfs_.addDevice("pci0/0:1");
    const auto disk = sysfs_.addDevice("pci0/0:1/block/sda");
    EXPECT_EQ(devices_.parent(disk), port) << "a folder without uevent is no device";
    EXPECT_EQ(devices_.parent(port), std::nullopt);
    EXPECT_EQ(SysfsDeviceRegistry("/absent").parent("/absent/devices/x"), std::nullopt);
}

TEST(TheUdevDatabase, HasWhatTheDeviceTreeLacks) {
    if (const auto why = test_support::WhyNoPrivateMounts(); !why.empty()) GTEST_SKIP() << why;
    SysfsDeviceRegistry devices;
    std::string bare;
    for (const auto& entry : devices.matching("IOMedia", {})) {
        if (!devices.property(entry, "Serial Number")) bare = entry;
    }
    if (bare.empty()) GTEST_SKIP() << "every block device here has a serial number";
    std::string number = test_support::ContentOf(bare + "/dev");
    number.pop_back();  // the line's end
    const test_support::TemporaryFolder run;
    run.makeFile("udev/data/b" + number, "I:1\nE:ID_SERIAL_SHORT=FROM-UDEV\nV:1\n");
    test_support::WithPrivateMounts([&] {
        ASSERT_EQ(::mount(run.path().c_str(), "/run", nullptr, MS_BIND, nullptr), 0);
        EXPECT_EQ(devices.property(bare, "Serial Number"), Value("FROM-UDEV"));
    });
}

}  // namespace

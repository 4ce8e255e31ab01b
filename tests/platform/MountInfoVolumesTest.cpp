#include <cstring>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "platform/linux/MountInfoVolumes.h"
#include "support/PrivateMounts.h"
#include "support/SysfsFolder.h"

namespace {

using platform::MountInfoVolumes;

class AMadeMachine : public testing::Test {
 protected:
    MountInfoVolumes volumes(const std::string& table) {
        return MountInfoVolumes(sysfs_.makeFile("mountinfo", table), sysfs_.path());
    }

    test_support::SysfsFolder sysfs_;
};

TEST_F(AMadeMachine, GivesEveryLocalVolumeADeviceAndANetworkOneItsAddress) {
    sysfs_.addDevice("pci0/block/sda/sda2", {{"dev", "8:2"}}, "block");
    auto machine = volumes(
        "1 0 8:2 / / rw - ext4 /dev/root rw\n"
        "2 1 0:5 / /tmp rw - tmpfs none rw\n"
        "3 1 0:6 / /tank ro - zfs tank/data rw\n"
        "4 1 0:7 / /mnt/n rw - nfs4 server:/export rw\n"
        "5 1 0:8 / /proc rw - proc proc rw\n");
    std::string seen;
    for (const auto& volume : machine.mounted()) {
        seen += volume.mountPoint + " " + volume.device + (volume.local ? " local" : "") +
                (volume.readOnly ? " read-only" : "") + (volume.pseudo ? " pseudo\n" : "\n");
    }
    EXPECT_EQ(seen,
              "/ /dev/sda2 local\n/tmp /dev/tmpfs local\n/tank /dev/zfs local read-only\n"
              "/mnt/n server:/export\n/proc /dev/proc local pseudo\n");
    EXPECT_EQ(machine.diskDescription("/dev/tmpfs")->mediaWritable, true);
    EXPECT_EQ(machine.diskDescription("/dev/zfs")->mediaWritable, false);
    EXPECT_EQ(machine.diskDescription("server:/export")->network, true);
    for (const char* unknown : {"/dev/absent", "/dev/", "/dev/../block/sda2", "/dev/null", "none"})
        EXPECT_FALSE(machine.diskDescription(unknown)) << unknown;
}

TEST_F(AMadeMachine, FindsAVolumeByItsDeviceNumberOrSaysWhyNot) {
    struct stat info = {};
    ASSERT_EQ(::stat(sysfs_.path().c_str(), &info), 0);
    const std::string number =
        std::to_string(major(info.st_dev)) + ":" + std::to_string(minor(info.st_dev));
    auto machine = volumes("4000000001 1 " + number + " / /under rw - ext4 /dev/a rw\n" +
                           "4000000002 1 " + number + " / /over rw - ext4 /dev/a rw\n");
    EXPECT_EQ(machine.volumeOf(sysfs_.path()).volume.value().mountPoint, "/over") << "the last";
    EXPECT_EQ(machine.volumeOf("/absent/path").error, std::strerror(ENOENT));
    EXPECT_EQ(volumes("").volumeOf(sysfs_.path()).error, std::strerror(ENODEV));
    EXPECT_TRUE(MountInfoVolumes(sysfs_ / "absent", sysfs_.path()).mounted().empty());
}

TEST_F(AMadeMachine, KnowsWhereADiskIsAndWhetherItCanBeWritten) {
    const struct {
        std::string folder, slave, device;
        test_support::SysfsFolder::Attributes attributes;
        std::optional<bool> internal, writable;
    } cases[] = {
        {"pci0/0:1/block/sda", "", "/dev/sda", {{"ro", "0\n"}}, true, true},
        {"pci0/0:2/usb2/2-1/block/sdb", "", "/dev/sdb1", {{"ro", "1\n"}}, false, false},
        {"pci0/0:1/block/sr0", "", "/dev/sr0", {{"ro", "1\n"}, {"removable", "1\n"}}, false, false},
        {"pci0/0:3/0:4/nvme0n1", "", "/dev/nvme0n1", {{"removable", "0\n"}}, false, {}},
        {"virtual/block/loop0", "", "/dev/loop0", {{"ro", "0\n"}}, {}, true},
        {"virtual/block/dm-0", "sdb1", "/dev/mapper/secret", {{"dm/name", "secret\n"}}, false, {}},
        {"virtual/block/dm-1", "sda", "/dev/dm-1", {{"ro", "oops\n"}}, true, {}},
        {"virtual/block/dm-2", "dm-2", "/dev/dm-2", {{"ro", "0\n"}}, {}, true},
    };
    sysfs_.addDevice("pci0/0:1");
    sysfs_.addDevice("pci0/0:2/usb2");
    sysfs_.addDevice("pci0/0:3", {{"removable", "removable"}});
    for (const auto& disk : cases) {
        sysfs_.addDevice(disk.folder, disk.attributes, "block");
        sysfs_.makeFolder("devices/" + disk.folder + "/slaves/" + disk.slave);
    }
    sysfs_.addDevice("pci0/0:2/usb2/2-1/block/sdb/sdb1", {{"partition", "1"}}, "block");
    auto machine = volumes("");
    for (const auto& disk : cases) {
        const auto description = machine.diskDescription(disk.device);
        ASSERT_TRUE(description) << disk.device;
        EXPECT_EQ(description->internal, disk.internal) << disk.device;
        EXPECT_EQ(description->mediaWritable, disk.writable) << disk.device;
    }
}

TEST(TheRunningSystem, TellsMountsOnOneDeviceApartAndFollowsLinks) {
    if (const auto why = test_support::WhyNoPrivateMounts(); !why.empty()) GTEST_SKIP() << why;
    const test_support::TemporaryFolder folder;
    const std::string source = folder.makeFolder("source");
    const std::string bound = folder.makeFolder("bound volume\n2");
    const std::string link = folder.makeLink("link", bound);
    test_support::WithPrivateMounts([&] {
        ASSERT_EQ(::mount(source.c_str(), bound.c_str(), nullptr, MS_BIND, nullptr), 0);
        const auto flags = MS_BIND | MS_REMOUNT | MS_RDONLY;
        ASSERT_EQ(::mount(nullptr, bound.c_str(), nullptr, flags, nullptr), 0);
        MountInfoVolumes volumes;
        const auto bind = volumes.volumeOf(link).volume;
        EXPECT_EQ(bind->mountPoint, bound);
        EXPECT_TRUE(bind->readOnly);
        EXPECT_NE(volumes.volumeOf(source).volume->mountPoint, bound);
    });
}

}  // namespace

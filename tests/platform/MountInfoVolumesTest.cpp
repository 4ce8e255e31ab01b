#include <algorithm>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "platform/linux/MountInfoVolumes.h"
#include "support/PrivateMounts.h"
#include "support/SysfsFolder.h"
#include "support/TemporaryFolder.h"

namespace {

using platform::DiskDescription;
using platform::MountInfoVolumes;
using platform::Volume;
using test_support::SysfsFolder;
using test_support::TemporaryFolder;
using test_support::WithPrivateMounts;

std::optional<Volume> volumeAt(const std::string& mountPoint) {
    MountInfoVolumes volumes;
    const auto all = volumes.mounted();
    const auto found = std::ranges::find(all, mountPoint, &Volume::mountPoint);
    return found != all.end() ? std::optional(*found) : std::nullopt;
}

class AMadeMachine : public testing::Test {
 protected:
    MountInfoVolumes volumes(const std::string& table) {
        return MountInfoVolumes(folder_.makeFile("mountinfo", table), sysfs_.root());
    }

    TemporaryFolder folder_;
    SysfsFolder sysfs_;
};

TEST_F(AMadeMachine, GivesEveryLocalVolumeADeviceAndANetworkOneItsAddress) {
    sysfs_.addDevice("pci0/block/sda/sda2", "block", {{"dev", "8:2"}});
    const auto mounted = volumes(
                             "1 0 8:2 / / rw - ext4 /dev/root rw\n"
                             "2 1 0:5 / /tmp rw - tmpfs none rw\n"
                             "3 1 0:6 / /tank ro - zfs tank/data rw\n"
                             "4 1 0:7 / /mnt/n rw - nfs4 server:/export rw\n"
                             "5 1 0:8 / /proc rw - proc proc rw\n")
                             .mounted();
    ASSERT_EQ(mounted.size(), 5U);
    EXPECT_EQ(mounted[0].device, "/dev/sda2") << "what the kernel calls the root";
    EXPECT_EQ(mounted[1].device, "/dev/tmpfs");
    EXPECT_FALSE(mounted[1].pseudo);
    EXPECT_EQ(mounted[2].device, "/dev/zfs");
    EXPECT_TRUE(mounted[2].readOnly);
    EXPECT_EQ(mounted[3].device, "server:/export");
    EXPECT_FALSE(mounted[3].local);
    EXPECT_TRUE(mounted[4].pseudo);
}

TEST_F(AMadeMachine, FindsAVolumeByItsDeviceNumberWhereTheMountsAreOthers) {
    struct stat info = {};
    ASSERT_EQ(::stat(folder_.path().c_str(), &info), 0);
    const std::string number =
        std::to_string(major(info.st_dev)) + ":" + std::to_string(minor(info.st_dev));
    const std::string line = " 1 " + number + " / /under rw - ext4 /dev/a rw\n";
    const auto lookup =
        volumes("4000000001" + line + "4000000002 1 " + number + " / /over rw - ext4 /dev/a rw\n")
            .volumeOf(folder_.path());
    ASSERT_TRUE(lookup.volume);
    EXPECT_EQ(lookup.volume->mountPoint, "/over") << "the last mount hides the first";
    const auto none = volumes("").volumeOf(folder_.path());
    EXPECT_FALSE(none.volume);
    EXPECT_EQ(none.error, std::strerror(ENODEV));
}

struct DiskCase {
    const char* device;
    std::optional<bool> internal;
    std::optional<bool> writable;
};

TEST_F(AMadeMachine, KnowsWhereADiskIsAndWhetherItCanBeWritten) {
    const auto disk = [this](const std::string& path, const char* number, const char* removable,
                             const char* readOnly) {
        sysfs_.addDevice(path, "block",
                         {{"dev", number}, {"removable", removable}, {"ro", readOnly}});
    };
    const auto partition = [this](const std::string& path) {
        sysfs_.addDevice(path, "block", {{"partition", "1"}, {"ro", "0"}});
    };
    sysfs_.addDevice("pci0/0:1");
    sysfs_.addDevice("pci0/0:2/usb2/2-1", {{"removable", "removable"}});
    sysfs_.addDevice("pci0/0:2/usb2");
    sysfs_.addDevice("pci0/0:3", {{"removable", "removable"}});
    disk("pci0/0:1/block/sda", "8:0", "0\n", "0\n");
    partition("pci0/0:1/block/sda/sda1");
    disk("pci0/0:2/usb2/2-1/block/sdb", "8:16", "0\n", "1\n");
    partition("pci0/0:2/usb2/2-1/block/sdb/sdb1");
    disk("pci0/0:1/block/sr0", "11:0", "1\n", "1\n");
    disk("pci0/0:3/0:4/nvme0n1", "259:0", "0\n", "0\n");
    disk("virtual/block/loop0", "7:0", "0\n", "0\n");
    disk("virtual/block/dm-0", "253:0", "0\n", "0\n");
    sysfs_.addDevice("virtual/block/dm-0", {{"dm/name", "secret\n"}});
    sysfs_.addLink("virtual/block/dm-0", "slaves/sdb1", "pci0/0:2/usb2/2-1/block/sdb/sdb1");
    disk("virtual/block/dm-1", "253:1", "0\n", "oops\n");
    sysfs_.addLink("virtual/block/dm-1", "slaves/sda1", "pci0/0:1/block/sda/sda1");
    disk("virtual/block/dm-2", "253:2", "0\n", "0\n");
    sysfs_.addLink("virtual/block/dm-2", "slaves/dm-2", "virtual/block/dm-2");

    const std::vector<DiskCase> cases = {
        {"/dev/sda", true, true},
        {"/dev/sda1", true, true},
        {"/dev/sdb1", false, false},
        {"/dev/sr0", false, false},
        {"/dev/nvme0n1", false, true},
        {"/dev/loop0", std::nullopt, true},
        {"/dev/mapper/secret", false, true},
        {"/dev/dm-1", true, std::nullopt},
        {"/dev/dm-2", std::nullopt, true},
    };
    auto machine = volumes("");
    for (const auto& [device, internal, writable] : cases) {
        const auto description = machine.diskDescription(device);
        ASSERT_TRUE(description) << device;
        EXPECT_EQ(description->internal, internal) << device;
        EXPECT_EQ(description->mediaWritable, writable) << device;
        EXPECT_NE(description->network, true) << device;
    }
}

TEST_F(AMadeMachine, TakesFromTheMountsWhatTheDeviceTreeLacks) {
    auto machine = volumes(
        "1 0 0:5 / /tmp rw - tmpfs none rw\n"
        "2 0 0:6 / /run ro - tmpfs none rw\n"
        "3 0 0:7 / /cd ro - squashfs image rw\n"
        "4 0 0:8 / /n rw - cifs //server/share rw\n");
    EXPECT_EQ(machine.diskDescription("/dev/tmpfs")->mediaWritable, true);
    EXPECT_EQ(machine.diskDescription("/dev/squashfs")->mediaWritable, false);
    EXPECT_EQ(machine.diskDescription("/dev/squashfs")->internal, std::nullopt);
    EXPECT_EQ(machine.diskDescription("//server/share")->network, true);
    for (const char* unknown : {"/dev/absent", "/dev/", "", "/dev/..", "/dev/null", "image"}) {
        EXPECT_FALSE(machine.diskDescription(unknown)) << unknown;
    }
}

TEST_F(AMadeMachine, SaysOnceThatThereIsNoMountTable) {
    std::vector<std::string> lines;
    MountInfoVolumes none(folder_ / "absent", sysfs_.root(),
                          [&](const std::string& line) { lines.push_back(line); });
    EXPECT_TRUE(none.mounted().empty());
    EXPECT_TRUE(none.mounted().empty());
    EXPECT_EQ(lines.size(), 1U);
}

TEST(TheRunningSystem, HasItsProcFileSystem) {
    const auto proc = volumeAt("/proc");
    ASSERT_TRUE(proc);
    EXPECT_EQ(proc->fileSystem, "proc");
    EXPECT_TRUE(proc->pseudo);
    EXPECT_EQ(MountInfoVolumes().volumeOf("/proc/self/status").volume->mountPoint, "/proc");
}

TEST(TheRunningSystem, AnswersTheSystemsErrorForAPathThatIsNotThere) {
    MountInfoVolumes volumes;
    EXPECT_EQ(volumes.volumeOf("/absent/path").error, std::strerror(ENOENT));
    EXPECT_EQ(volumes.volumeOf("/proc/self/status/x").error, std::strerror(ENOTDIR));
}

TEST(TheRunningSystem, DescribesTheDiskUnderEveryVolumeWithABlockDevice) {
    MountInfoVolumes volumes;
    int seen = 0;
    for (const auto& volume : volumes.mounted()) {
        if (!volume.local || !std::filesystem::is_block_file(volume.device)) continue;
        const auto description = volumes.diskDescription(volume.device);
        ASSERT_TRUE(description) << volume.device;
        EXPECT_TRUE(description->mediaWritable.has_value()) << volume.device;
        EXPECT_EQ(description->network, false) << volume.device;
        ++seen;
    }
    if (seen == 0) GTEST_SKIP() << "no volume here has a block device";
}

TEST(TheRunningSystem, ResolvesALinkToADiskUnderDev) {
    std::string disk;
    for (const auto& volume : MountInfoVolumes().mounted()) {
        if (std::filesystem::is_block_file(volume.device)) disk = volume.device;
    }
    if (disk.empty()) GTEST_SKIP() << "no volume here has a block device";
    const std::string link = "/dev/shm/tidewell-test-link-" + std::to_string(::getpid());
    std::error_code error;
    std::filesystem::create_symlink(disk, link, error);
    if (error) GTEST_SKIP() << "/dev/shm: " << error.message();
    const auto description = MountInfoVolumes().diskDescription(link);
    std::filesystem::remove(link);
    ASSERT_TRUE(description);
    EXPECT_EQ(description->mediaWritable, MountInfoVolumes().diskDescription(disk)->mediaWritable);
}

TEST(TheRunningSystem, TellsMountsOnOneDeviceApartAndFollowsLinks) {
    if (const auto why = test_support::WhyNoPrivateMounts(); !why.empty()) GTEST_SKIP() << why;
    const TemporaryFolder folder;
    const std::string memory = folder.makeFolder("memory volume\n2");
    const std::string source = folder.makeFolder("source");
    const std::string bound = folder.makeFolder("bound");
    folder.makeLink("link", bound);
    WithPrivateMounts([&] {
        ASSERT_EQ(::mount("none", memory.c_str(), "tmpfs", 0, "size=64k"), 0);
        ASSERT_EQ(::mount(source.c_str(), bound.c_str(), nullptr, MS_BIND, nullptr), 0);
        constexpr unsigned long readOnly = MS_BIND | MS_REMOUNT | MS_RDONLY;
        ASSERT_EQ(::mount(nullptr, bound.c_str(), nullptr, readOnly, nullptr), 0);

        MountInfoVolumes volumes;
        const auto tmpfs = volumes.volumeOf(memory).volume;
        ASSERT_TRUE(tmpfs);
        EXPECT_EQ(tmpfs->mountPoint, memory) << "blanks and line ends are unescaped";
        EXPECT_EQ(tmpfs->device, "/dev/tmpfs");
        EXPECT_TRUE(tmpfs->local && !tmpfs->readOnly && !tmpfs->pseudo);

        const auto bind = volumes.volumeOf(folder / "link").volume;
        ASSERT_TRUE(bind);
        EXPECT_EQ(bind->mountPoint, bound);
        EXPECT_TRUE(bind->readOnly);
        EXPECT_NE(volumes.volumeOf(source).volume->mountPoint, bound);
    });
    EXPECT_FALSE(volumeAt(memory)) << "the mounts have stayed behind";
}

}  // namespace

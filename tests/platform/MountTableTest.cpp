#include <gtest/gtest.h>

#include "platform/linux/FileSystemKinds.h"
#include "platform/linux/MountTable.h"

namespace {

using platform::MountEntry;
using platform::ParseMountTable;

constexpr const char* goodLine = "26 1 254:0 / / rw,relatime - ext4 /dev/vda rw,discard\n";
const MountEntry goodEntry = {26, 254, 0, "/", "ext4", "/dev/vda", false};

TEST(MountTable, TakesNoneOrManyOptionalFieldsAndEscapedNames) {
    const auto entries = ParseMountTable(
        "26 1 254:0 / / rw - ext4 /dev/vda rw\n"
        "40 26 0:41 /sub /media/a\\040b\\134c rw shared:1 master:2 unbindable - "
        "fuse.sshfs me@host:/a\\011b rw\n"
        "41 26 8:1 / /media/dash rw - - - vfat /dev/sda1 rw\n"
        "42 26 0:42 / /mnt/empty rw - tmpfs  rw\n");
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[0], goodEntry);
    EXPECT_EQ(entries[1].mountPoint, "/media/a b\\c");
    EXPECT_EQ(entries[1].source, "me@host:/a\tb");
    EXPECT_EQ(entries[1].fileSystem, "fuse.sshfs");
    EXPECT_EQ(entries[3].source, "");
    EXPECT_EQ(entries[3].fileSystem, "tmpfs");
}

TEST(MountTable, IsReadOnlyByTheMountOrByTheFileSystem) {
    const auto entries = ParseMountTable(
        "1 0 8:1 / /a ro,noatime - ext4 /dev/sda1 rw\n"
        "2 0 8:1 / /b rw - ext4 /dev/sda1 errors=remount-ro,ro\n"
        "3 0 8:1 / /c rw,relatime - ext4 /dev/sda1 rw,errors=remount-ro\n");
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_TRUE(entries[0].readOnly);
    EXPECT_TRUE(entries[1].readOnly);
    EXPECT_FALSE(entries[2].readOnly) << "remount-ro is another option";
}

TEST(MountTable, SkipsLinesThatAreNoEntry) {
    const std::vector<std::string> bad = {
        "",
        "26",
        "26 1 254:0 / / rw",
        "26 1 254:0 / / rw -",
        "26 1 254:0 / / rw - ext4 /dev/vda",
        "26 1 254:0 / / rw shared:1 ext4 /dev/vda rw",
        "x 1 254:0 / / rw - ext4 /dev/vda rw",
        "99999999999999999999999 1 254:0 / / rw - ext4 /dev/vda rw",
        "26 1 254 / / rw - ext4 /dev/vda rw",
        "26 1 254:-1 / / rw - ext4 /dev/vda rw",
        "26 1 254:0 / relative rw - ext4 /dev/vda rw",
        "26 1 254:0 / / rw -  /dev/vda rw",
        std::string(4, '\0'),
        "26 1 254:0 / /" + std::string(70'000, 'a') + " rw - ext4 /dev/vda rw",
    };
    for (const auto& line : bad) {
        const auto entries = ParseMountTable(line + "\n" + goodLine);
        EXPECT_EQ(entries, std::vector<MountEntry>{goodEntry}) << line.substr(0, 80);
    }
    EXPECT_TRUE(ParseMountTable("26 1 254:0 / / rw - ext4 /dev/vda rw").empty()) << "cut off";
}

TEST(MountTable, KeepsWhatOnlyLooksLikeAnEscape) {
    const auto entries = ParseMountTable("1 0 8:1 / /a\\000\\9\\400\\04 rw - ext4 /dev/sda1 rw\n");
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].mountPoint, "/a\\000\\9\\400\\04");
}

TEST(FileSystemKinds, TellNetworkAndPseudoFromFilesAtHand) {
    for (const char* type : {"nfs", "nfs4", "cifs", "smb3", "fuse.sshfs", "fuse.rclone",
                             "fuse.davfs", "fuse.curlftpfs", "9p", "afs", "ceph"}) {
        EXPECT_TRUE(platform::IsNetworkFileSystem(type)) << type;
        EXPECT_FALSE(platform::IsPseudoFileSystem(type)) << type;
    }
    for (const char* type : {"proc", "sysfs", "cgroup2", "devpts", "autofs", "fuse.portal"}) {
        EXPECT_TRUE(platform::IsPseudoFileSystem(type)) << type;
        EXPECT_FALSE(platform::IsNetworkFileSystem(type)) << type;
    }
    for (const char* type : {"ext4", "tmpfs", "overlay", "zfs", "fuseblk", "fuse.bindfs", ""}) {
        EXPECT_FALSE(platform::IsNetworkFileSystem(type)) << type;
        EXPECT_FALSE(platform::IsPseudoFileSystem(type)) << type;
    }
}

}  // namespace

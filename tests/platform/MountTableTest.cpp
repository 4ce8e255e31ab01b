#include <gtest/gtest.h>

#include "platform/linux/FileSystemKinds.h"
#include "platform/linux/MountTable.h"

namespace {

TEST(MountTable, TakesNoneOrManyOptionalFieldsAndEscapedNames) {
    const auto entries = platform::ParseMountTable(
        "26 1 254:0 / / rw,relatime - ext4 /dev/vda rw,errors=remount-ro\n"
        "40 26 0:41 /sub /media/a\\040b\\134c rw shared:1 master:2 unbindable - "
        "fuse.sshfs me@host:/a\\011b rw\n"
        "41 26 8:1 / /a\\000\\9\\400\\04 ro,noatime - vfat /dev/sda1 rw\n"
        "42 26 0:42 / /mnt/empty rw - tmpfs  size=1,ro\n");
    const std::vector<platform::MountEntry> expected = {
        {26, 254, 0, "/", "ext4", "/dev/vda", false},
        {40, 0, 41, "/media/a b\\c", "fuse.sshfs", "me@host:/a\tb", false},
        {41, 8, 1, "/a\\000\\9\\400\\04", "vfat", "/dev/sda1", true},
        {42, 0, 42, "/mnt/empty", "tmpfs", "", true},
    };
    EXPECT_EQ(entries, expected);
}

TEST(MountTable, SkipsLinesThatAreNoEntry) {
    const std::vector<std::string> bad = {
        "",
        "26 1 254:0 / / rw - ext4 /dev/vda",
        "26 1 254:0 / / rw shared:1 ext4 /dev/vda rw",
        "99999999999999999999999 1 254:0 / / rw - ext4 /dev/vda rw",
        "26 1 254:-1 / / rw - ext4 /dev/vda rw",
        "26 1 254:0 / relative rw - ext4 /dev/vda rw",
        "26 1 254:0 / / rw -  /dev/vda rw",
        "26 1 254:0 / /" + std::string(70'000, 'a') + " rw - ext4 /dev/vda rw",
    };
    const std::string good = "26 1 254:0 / / rw - ext4 /dev/vda rw";
    for (const auto& line : bad) {
        const auto entries = platform::ParseMountTable(line + "\n" + good + "\n" + good);
        ASSERT_EQ(entries.size(), 1U) << "the last is cut off: " << line.substr(0, 80);
        EXPECT_EQ(entries[0].source, "/dev/vda");
    }
}

TEST(FileSystemKinds, TellNetworkAndPseudoFromFilesAtHand) {
    const struct {
        bool network, pseudo;
        std::vector<const char*> types;
    } cases[] = {
        {true, false, {"nfs4", "cifs", "smb3", "fuse.sshfs", "fuse.rclone", "9p", "ceph"}},
        {false, true, {"proc", "sysfs", "cgroup2", "devpts", "autofs", "fuse.portal"}},
        {false, false, {"ext4", "tmpfs", "overlay", "zfs", "fuseblk", "fuse.bindfs", ""}},
    };
    for (const auto& [network, pseudo, types] : cases) {
        for (const char* type : types) {
            EXPECT_EQ(platform::IsNetworkFileSystem(type), network) << type;
            EXPECT_EQ(platform::IsPseudoFileSystem(type), pseudo) << type;
        }
    }
}

}  // namespace

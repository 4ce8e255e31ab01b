#include <filesystem>
#include <gtest/gtest.h>
#include <sys/mount.h>

#include "support/PrivateMounts.h"
#include "widgets/OfflineVolume.h"

namespace {

TEST(OfflineVolume, IsOneThatTheFolderOfVolumesDoesNotHold) {
    const std::vector<std::pair<std::string, bool>> cases = {
        {"/Volumes/Tidewell-Missing", true},
        {"/Volumes/Tidewell-Missing/a/b", true},
        {"/Volumes//Tidewell-Missing/", true},
        {"/media/nobody/Tidewell-Missing/a", true},
        {"/run/media/nobody/Tidewell-Missing", true},
        {"/Volumes", false},
        {"/Volumes/", false},
        {"/media/nobody", false},
        {"/VolumesX/a", false},
        {"Volumes/a", false},
        {"/Users/x", false},
        {"/no/such/folder", false},
        {"/", false},
        {"", false},
    };
    for (const auto& [path, offline] : cases)
        EXPECT_EQ(orv::IsPathOffline(path), offline) << path;
}

TEST(OfflineVolume, ComesBackWithItsMountPoint) {
    const auto reason = test_support::WhyNoPrivateMounts();
    if (!reason.empty()) GTEST_SKIP() << reason;
    test_support::WithPrivateMounts([] {
        // over whatever the machine has there
        std::filesystem::create_directories("/media");
        ASSERT_EQ(::mount("none", "/media", "tmpfs", 0, nullptr), 0);
        std::filesystem::create_directories("/media/user/Disk");
        EXPECT_FALSE(orv::IsPathOffline("/media/user/Disk"));
        EXPECT_FALSE(orv::IsPathOffline("/media/user/Disk/missing/folder"));
        EXPECT_TRUE(orv::IsPathOffline("/media/user/Other/missing"));
    });
}

}  // namespace

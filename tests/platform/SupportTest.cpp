#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <stdlib.h>

#include "platform/linux/LinuxServices.h"
#include "support/FakeAccessLists.h"
#include "support/FakeDeviceRegistry.h"
#include "support/FakeVolumes.h"
#include "support/FakeWorkspace.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace test_support;

TEST(ATemporaryFolder, GoesWithAllItHoldsButNotWithWhatItsLinksPointTo) {
    const TemporaryFolder kept;
    kept.makeFile("precious", "text");
    auto folder = std::make_unique<TemporaryFolder>();
    const std::string path = folder->path();
    folder->makeLink("link", kept.path());
    folder->makeFile("locked/deep/file");
    std::filesystem::permissions(*folder / "locked/deep", std::filesystem::perms::none);
    std::filesystem::permissions(*folder / "locked", std::filesystem::perms::owner_read);
    folder.reset();
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(ContentOf(kept / "precious"), "text");
}

TEST(AScopedVariable, IsAsItWasAfterwards) {
    const ScopedEnvironment outer("TIDEWELL_TEST", "outer");
    {
        const ScopedEnvironment inner("TIDEWELL_TEST", std::nullopt);
        EXPECT_EQ(::getenv("TIDEWELL_TEST"), nullptr);
    }
    EXPECT_STREQ(::getenv("TIDEWELL_TEST"), "outer");
}

TEST(FakeVolumesOfATest, TakeTheLongestMountPointAtAComponentsEnd) {
    FakeVolumes volumes;
    volumes.volumes = {
        {"/", "/dev/a", "ext4"}, {"/media/a", "/dev/b", "ext4"}, {"/m", "/dev/c", "ext4"}};
    EXPECT_EQ(volumes.volumeOf("/media/a/file").volume->mountPoint, "/media/a");
    EXPECT_EQ(volumes.volumeOf("/media/ab").volume->mountPoint, "/");
}

TEST(LinuxServices, AreAllThereButTheRunLoop) {
    const auto services = platform::MakeLinuxServices([](const std::string&) {});
    EXPECT_FALSE(services.runLoop);
    EXPECT_TRUE(services.volumes && services.devices && services.workspace && services.accessLists);
    EXPECT_FALSE(services.volumes->mounted().empty());
    EXPECT_FALSE(services.devices->matching("IOMedia", {}).empty() &&
                 std::filesystem::exists("/sys/class/block/loop0"));
}

}  // namespace

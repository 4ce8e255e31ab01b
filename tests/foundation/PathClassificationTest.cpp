#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "foundation/paths/PathClassification.h"
#include "foundation/system/Log.h"
#include "platform/Services.h"
#include "support/FakeVolumes.h"
#include "support/ScopedEnvironment.h"

namespace {

using namespace orv;

class PathClassification : public testing::Test {
 protected:
    PathClassification() {
        auto fake = std::make_unique<test_support::FakeVolumes>();
        volumes = fake.get();
        platform::ProcessServices().volumes = std::move(fake);
        quelm::SetLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~PathClassification() override {
        quelm::SetLogSink({});
        platform::ProcessServices() = {};
    }

    std::vector<std::string> log;
    test_support::FakeVolumes* volumes = nullptr;
    const test_support::ScopedEnvironment home{"HOME", "/home/bob"};
};

TEST_F(PathClassification, SystemPathsBeginLikeASystemLocation) {
    for (const auto* path :
         {"/", "/ApplicationsOld", "/Library/x", "/Network/Library", "/Network/Applications/x",
          "/SystemX", "/home/bob/Library", "/home/bob/ApplicationsX", "/usr", "/etc/fstab"})
        EXPECT_TRUE(IsSystemPath(path)) << path;
    for (const auto* path : {"", "/home/bob", "/home/bob/Documents", "/home/amy/Library",
                             "/usrlocal", "/library", "/Network", "~/Library", "//"})
        EXPECT_FALSE(IsSystemPath(path)) << path;
}

TEST_F(PathClassification, InsideTheHomeIsPlainTextAndLeavesOutTheHomeItself) {
    for (const auto* path : {"/home/bob/x", "/home/bobby", "/home/bob/"})
        EXPECT_TRUE(isInsideUserHome(path)) << path;
    for (const auto* path : {"/home/bob", "/home/bo", "/home/amy/x"})
        EXPECT_FALSE(isInsideUserHome(path)) << path;
    const test_support::ScopedEnvironment noHome("HOME", std::nullopt);
    EXPECT_FALSE(isInsideUserHome("/home/bob/x"));
}

TEST_F(PathClassification, AMissingPathIsAsLocalAsItsNearestParentThatExists) {
    const std::pair<std::string, std::string> cases[] = {
        {std::string(20'000, '/') + "x", "/"},
        {"/proc/self/", "/proc/self/"},
        {"/proc/self/status/beneath-a-file/a//b/", "/proc/self/status"},
    };
    for (const auto& [path, asked] : cases) {
        log.clear();
        volumes->errors = {{asked, "at " + asked}};
        EXPECT_FALSE(isLocalPath(path));
        EXPECT_THAT(log,
                    testing::ElementsAre("ERROR: getting resource for volume URL: at " + asked));
    }
    for (const bool local : {false, true}) {
        volumes->volumes = {{.mountPoint = "/", .device = {}, .fileSystem = {}, .local = local}};
        EXPECT_EQ(isLocalPath("/no-such-folder"), local);
    }
    for (const auto* path : {"", "no-such-file", "no-such-folder//a/"})
        EXPECT_FALSE(isLocalPath(path)) << path;
}

TEST_F(PathClassification, AVolumesTypeComesFromItsDisksDescription) {
    const std::pair<platform::DiskDescription, EVolumeType> cases[] = {
        // internal, writable, network
        {{true, true, {}}, VOLUME_INTERNAL},     {{{}, true, {}}, VOLUME_INTERNAL},
        {{false, true, false}, VOLUME_EXTERNAL}, {{false, false, {}}, VOLUME_READ_ONLY},
        {{false, false, true}, VOLUME_NETWORK},  {{}, VOLUME_READ_ONLY},
    };
    for (const auto& [disk, type] : cases) {
        volumes->disks["/dev/sda1"] = disk;
        EXPECT_EQ(GetVolumeType("/dev/sda1"), type);
    }
    for (const auto* device : {"disk2s1", "server:/export", "", "/dev", "x/dev/sda1"})
        EXPECT_EQ(GetVolumeType(device), VOLUME_NETWORK) << device;
    EXPECT_EQ(GetVolumeType("/dev/sdb1"), VOLUME_UNKNOWN);
    platform::ProcessServices() = {};
    EXPECT_EQ(GetVolumeType("/dev/sda1"), VOLUME_UNKNOWN);
    EXPECT_FALSE(isLocalPath("/"));
}

}  // namespace

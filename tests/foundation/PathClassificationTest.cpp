#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <vector>

#include "foundation/paths/PathClassification.h"
#include "foundation/system/Log.h"
#include "platform/Services.h"

namespace orv {

namespace {

using platform::DiskDescription;
using testing::ElementsAre;
using testing::IsEmpty;

class FakeVolumes : public platform::Volumes {
 public:
    std::vector<platform::Volume> mounted() override { return {}; }
    Lookup volumeOf(const std::string& path) override {
        asked.push_back(path);
        return answer;
    }
    std::optional<DiskDescription> diskDescription(const std::string& device) override {
        const auto found = disks.find(device);
        return found != disks.end() ? std::optional(found->second) : std::nullopt;
    }

    std::vector<std::string> asked;
    Lookup answer;
    std::map<std::string, DiskDescription> disks;
};

class PathClassification : public testing::Test {
 protected:
    PathClassification() {
        auto fake = std::make_unique<FakeVolumes>();
        volumes = fake.get();
        platform::ProcessServices().volumes = std::move(fake);
        setenv("HOME", "/home/bob", 1);
        quelm::SetLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~PathClassification() override {
        quelm::SetLogSink({});
        platform::ProcessServices().volumes.reset();
        if (home) {
            setenv("HOME", home->c_str(), 1);
        } else {
            unsetenv("HOME");
        }
    }

    FakeVolumes* volumes = nullptr;
    std::vector<std::string> log;

 private:
    const std::optional<std::string> home = std::getenv("HOME") != nullptr
                                                ? std::optional<std::string>(std::getenv("HOME"))
                                                : std::nullopt;
};

TEST_F(PathClassification, SystemPathsBeginLikeASystemLocation) {
    for (const auto path :
         {"/", "/Applications", "/Applications/x.app", "/ApplicationsOld", "/Library/x",
          "/Network/Library", "/Network/Applications/x", "/System", "/SystemX",
          "/home/bob/Library/Preferences", "/home/bob/Applications", "/home/bob/LibraryX"}) {
        EXPECT_TRUE(IsSystemPath(path)) << path;
    }
    for (const auto path : {"/usr", "/usr/share", "/etc/fstab", "/boot", "/dev/sda", "/proc/1",
                            "/sys", "/bin/sh", "/sbin", "/lib/x", "/lib32", "/lib64", "/libx32"}) {
        EXPECT_TRUE(IsSystemPath(path)) << path;
    }
    for (const auto path :
         {"", "/home/bob", "/home/bob/Documents", "/home/amy/Library", "/usrlocal", "/etcetera",
          "/devices", "/libs", "/library", "/Network", "~/Library", "//", "usr"}) {
        EXPECT_FALSE(IsSystemPath(path)) << path;
    }
}

TEST_F(PathClassification, InsideTheHomeIsPlainTextAndLeavesOutTheHomeItself) {
    EXPECT_TRUE(isInsideUserHome("/home/bob/x"));
    EXPECT_TRUE(isInsideUserHome("/home/bobby"));
    EXPECT_TRUE(isInsideUserHome("/home/bob/"));
    EXPECT_FALSE(isInsideUserHome("/home/bob"));
    EXPECT_FALSE(isInsideUserHome("/home/bo"));
    EXPECT_FALSE(isInsideUserHome("/home/amy/x"));
    setenv("HOME", "", 1);
    EXPECT_FALSE(isInsideUserHome("/home/bob/x"));
    unsetenv("HOME");
    EXPECT_FALSE(isInsideUserHome("/home/bob/x"));
}

TEST_F(PathClassification, AMissingPathIsAsLocalAsItsNearestParentThatExists) {
    std::string deep;
    for (int i = 0; i < 20'000; ++i)
        deep += "/x";
    const struct {
        std::string path;
        std::string asked;
    } cases[] = {
        {"/", "/"},
        {"/proc/self", "/proc/self"},
        {"/proc/self/", "/proc/self/"},
        {"/no-such-folder", "/"},
        {"/proc/self/no-such/a//b/", "/proc/self"},
        {"/proc/self/status/beneath-a-file", "/proc/self/status"},
        {std::string(20'000, '/') + "x", "/"},
        {deep, "/"},
    };
    volumes->answer.volume.emplace();
    for (const auto& [path, asked] : cases) {
        volumes->asked.clear();
        EXPECT_TRUE(isLocalPath(path)) << path.substr(0, 80);
        EXPECT_THAT(volumes->asked, ElementsAre(asked)) << path.substr(0, 80);
    }
    volumes->answer.volume->local = false;
    EXPECT_FALSE(isLocalPath("/no-such-folder"));
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PathClassification, APathOfWhichNothingExistsIsNotLocal) {
    volumes->answer.volume.emplace();
    for (const auto path : {"", "no-such-file", "no-such-folder/a/b", "no-such-folder//"}) {
        EXPECT_FALSE(isLocalPath(path)) << path;
    }
    EXPECT_THAT(volumes->asked, IsEmpty());
}

TEST_F(PathClassification, AVolumeThatCannotBeToldIsLoggedAndNotLocal) {
    volumes->answer.error = "no such device";
    EXPECT_FALSE(isLocalPath("/"));
    platform::ProcessServices().volumes.reset();
    EXPECT_FALSE(isLocalPath("/"));
    EXPECT_THAT(log, ElementsAre("ERROR: getting resource for volume URL: no such device",
                                 "ERROR: getting resource for volume URL: there is no volume "
                                 "service"));
}

TEST_F(PathClassification, AVolumesTypeComesFromItsDisksDescription) {
    const struct {
        DiskDescription disk;
        EVolumeType type;
    } cases[] = {
        {{.internal = true, .mediaWritable = true, .network = {}}, VOLUME_INTERNAL},
        {{.internal = {}, .mediaWritable = true, .network = {}}, VOLUME_INTERNAL},
        {{.internal = false, .mediaWritable = true, .network = false}, VOLUME_EXTERNAL},
        {{.internal = false, .mediaWritable = false, .network = {}}, VOLUME_READ_ONLY},
        {{.internal = true, .mediaWritable = {}, .network = {}}, VOLUME_READ_ONLY},
        {{.internal = true, .mediaWritable = true, .network = true}, VOLUME_NETWORK},
        {{.internal = false, .mediaWritable = false, .network = true}, VOLUME_NETWORK},
        {{}, VOLUME_READ_ONLY},
    };
    for (const auto& [disk, type] : cases) {
        volumes->disks["/dev/sda1"] = disk;
        EXPECT_EQ(GetVolumeType("/dev/sda1"), type);
    }
    for (const auto device : {"disk2s1", "server:/export", "", "/dev", "x/dev/sda1"}) {
        EXPECT_EQ(GetVolumeType(device), VOLUME_NETWORK) << device;
    }
    EXPECT_EQ(GetVolumeType("/dev/sdb1"), VOLUME_UNKNOWN);
    platform::ProcessServices().volumes.reset();
    EXPECT_EQ(GetVolumeType("/dev/sda1"), VOLUME_UNKNOWN);
    EXPECT_EQ(GetVolumeType("server:/export"), VOLUME_NETWORK);
}

}  // namespace

}  // namespace orv

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "accounts/filters/VolumeFilters.h"
#include "platform/Services.h"
#include "support/FakeVolumes.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;

class VolumeFilters : public testing::Test {
 protected:
    VolumeFilters() {
        auto fake = std::make_unique<test_support::FakeVolumes>();
        volumes = fake.get();
        platform::ProcessServices().volumes = std::move(fake);
        const auto add = [this](const char* mountPoint, const char* device) {
            volumes->volumes.push_back({mountPoint, device, "x", true, false, false});
        };
        add("/", "/dev/ro");
        add("/in", "/dev/in");
        add("/ext", "/dev/ext");
        add("/net", "server:/export");
        add("/ro", "/dev/ro");
        add("/odd", "/dev/odd");
        volumes->disks = {{"/dev/in", {true, true, {}}},
                          {"/dev/ext", {false, true, {}}},
                          {"/dev/ro", {true, false, {}}}};
        volumes->errors["/gone"] = "No such file or directory";
    }
    ~VolumeFilters() override { platform::ProcessServices() = {}; }

    test_support::FakeVolumes* volumes = nullptr;
    const std::vector<std::string> paths = {"/odd/a", "/ro/a",  "/net/a",
                                            "/gone",  "/ext/a", "/in/a"};
};

TEST_F(VolumeFilters, AKindIsExcludedUnlessItsBitAllowsIt) {
    struct Case {
        std::uint32_t mask;
        std::vector<std::string> excluded;
        std::vector<std::string> allowed;
    };
    const Case cases[] = {
        {0, {"/ext", "/net", "/ro"}, {"/gone", "/in/a"}},
        {1, {"/ext", "/net"}, {"/ro/a", "/gone", "/in/a"}},
        {2, {"/ext", "/ro"}, {"/net/a", "/gone", "/in/a"}},
        {4, {"/net", "/ro"}, {"/gone", "/ext/a", "/in/a"}},
        {6, {"/ro"}, {"/net/a", "/gone", "/ext/a", "/in/a"}},
        {7, {}, paths},
    };
    for (const Case& expected : cases) {
        EXPECT_THAT(orv::GetExcludedVolumes(expected.mask), ElementsAreArray(expected.excluded));
        EXPECT_THAT(orv::FilterAllowedVolumePaths(expected.mask, paths),
                    ElementsAreArray(expected.allowed));
        for (const std::string folder : {"/in", "/ext", "/net", "/ro", "/odd"}) {
            EXPECT_EQ(orv::IsVolumeExcluded(expected.mask, folder + "/a"),
                      std::ranges::count(expected.excluded, folder) > 0)
                << expected.mask << folder;
        }
    }
    EXPECT_FALSE(orv::IsVolumeExcluded(0, "/gone"));
    EXPECT_TRUE(orv::IsVolumeExcluded(0, "/a")) << "only the list of volumes leaves out the root";
}

TEST_F(VolumeFilters, WithoutAVolumeServiceNothingIsHidden) {
    platform::ProcessServices() = {};
    EXPECT_THAT(orv::GetExcludedVolumes(0), IsEmpty());
    EXPECT_FALSE(orv::IsVolumeExcluded(0, "/net/a"));
    EXPECT_EQ(orv::FilterAllowedVolumePaths(0, paths), paths);
}

}  // namespace

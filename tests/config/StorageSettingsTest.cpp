#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <regex>

#include "config/PropertyFiles.h"
#include "config/StorageSettings.h"
#include "config/TopLevelPaths.h"
#include "foundation/system/Log.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::orv_StorageSettings;
using quelm::Array;
using quelm::Value;
using Paths = std::vector<std::string>;

Value row(const std::string& path, bool selected = true) {
    return Array{path, selected};
}

// The rule, word by word, for comparison.

bool isOnAnotherVolume(const std::string& path) {
    static const std::regex volumes("/Volumes(/.*)?|(/run)?/media/[^/]+(/.*)?");
    return std::regex_match(path, volumes);
}

bool isAtOrUnder(const std::string& path, const std::string& above) {
    if (above == "/" && isOnAnotherVolume(path)) return false;
    return path.starts_with(above) &&
           (path.size() == above.size() || path[above.size()] == '/' || above == "/");
}

Paths topLevelPathsOnePass(const Array& rows) {
    Paths roots;
    for (const Value& value : rows) {
        const auto* cells = value.asArray();
        if (!cells || cells->size() < 2 || (*cells)[1] != Value(true)) continue;
        const std::string& path = *(*cells)[0].asString();
        bool isCovered = false;
        for (std::size_t i = 0; i < roots.size() && !isCovered;) {
            if (isAtOrUnder(roots[i], path)) {
                roots.erase(roots.begin() + static_cast<std::ptrdiff_t>(i));
            } else {
                isCovered = isAtOrUnder(path, roots[i++]);
            }
        }
        if (!isCovered) roots.push_back(path);
    }
    return roots;
}

Array randomRows(std::mt19937& random) {
    static const std::vector<std::string> components = {
        "/Volumes", "/a", "/an", "/anna", "/a-b", "/", "/é", "/Volumes2", "/b", "x"};
    Array rows;
    for (auto n = random() % 30; n > 0; --n) {
        std::string path = random() % 15 == 0 ? "/" : "";
        for (auto depth = random() % 5; depth > 0; --depth)
            path += components[random() % components.size()];
        Array cells{path, random() % 5 != 0};
        if (random() % 20 == 0) cells.pop_back();
        if (random() % 20 == 0) cells.back() = 1;
        rows.emplace_back(std::move(cells));
    }
    return rows;
}

TEST(TopLevelPaths, AreWhatOnePassOverTheRowsGives) {
    std::mt19937 random(23);
    for (int i = 0; i < 20'000; ++i) {
        const Array rows = randomRows(random);
        ASSERT_EQ(orv::TopLevelPaths(rows), topLevelPathsOnePass(rows)) << Value(rows);
    }
}

TEST(TopLevelPaths, KeepOtherVolumesAndSiblings) {
    const std::vector<std::pair<Array, Paths>> cases = {
        {{row("/Users/anna/Documents"), row("/Users/anna")}, {"/Users/anna"}},
        {{row("/"), row("/Volumes/Data/Photos")}, {"/", "/Volumes/Data/Photos"}},
        {{row("/Volumes/Data"), row("/"), row("/Volumesque")}, {"/Volumes/Data", "/"}},
        {{row("/"), row("/media"), row("/media/anna/Disk"), row("/run/media/anna/Disk/x")},
         {"/", "/media/anna/Disk", "/run/media/anna/Disk/x"}},
        {{row("/Users/an"), row("/Users/anna")}, {"/Users/an", "/Users/anna"}},
        {{row("/a/b"), row("/a", false)}, {"/a/b"}},
        {{row("/a"), row("/b"), row("/a")}, {"/b", "/a"}},
        {{7, Array{"/a"}, Array{1, true}, Array{"/b", 1}, Array{"/c", true, 3}}, {"/c"}},
    };
    for (const auto& [rows, roots] : cases)
        EXPECT_EQ(orv::TopLevelPaths(rows), roots) << Value(rows);
}

TEST(TopLevelPaths, ARootIsRemovedWithItsRows) {
    const Array rows = {
        row("/Users/anna"),    row("/Users/an/x", false), row("/Users/an"),   row("/Volumes"),
        row("/media/an/Disk"), row("relative"),           Array{"/Users/an"}, Array{5, true}};
    const std::vector<std::pair<std::string, std::vector<std::size_t>>> cases = {
        {"/Users/an", {0, 3, 4, 5, 6, 7}},
        {"/", {3, 4, 6, 7}},
        {"/Volumes", {0, 1, 2, 4, 5, 6, 7}},
        {"/Users/", {0, 1, 2, 3, 4, 5, 6, 7}},
    };
    for (const auto& [path, kept] : cases) {
        Array expected;
        for (const std::size_t index : kept)
            expected.push_back(rows[index]);
        Array left = rows;
        orv::RemoveTopLevelPath(left, path);
        EXPECT_EQ(left, expected) << path;
    }
}

class StorageSettings : public testing::Test {
 protected:
    StorageSettings() {
        quelm::SetLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~StorageSettings() override { quelm::SetLogSink(nullptr); }

    test_support::TemporaryFolder folder;
    const std::string path = folder / "storage_info.plist";
    orv_StorageSettings settings{folder.path()};
    std::vector<std::string> log;
};

TEST_F(StorageSettings, TheFileIsReplacedInTheOrderOfSelection) {
    EXPECT_FALSE(settings.load());
    EXPECT_TRUE(settings.store()) << "nothing is there to lose";
    const Array rows = {row("/b"), row("/a", false), Array{"foreign"}};
    settings.setPathsAndFlags(rows);
    EXPECT_TRUE(settings.store());
    orv_StorageSettings other(folder.path());
    EXPECT_FALSE(settings.isEqualToAgentSettings(other));
    EXPECT_TRUE(other.load());
    EXPECT_TRUE(settings.isEqualToAgentSettings(other));
    EXPECT_EQ(other.pathsAndFlags(), rows);

    settings.updateWithPolicyPaths({"/z", 5, "/y"});
    EXPECT_EQ(settings.pathsAndFlags(), (Array{row("/z"), row("/y")}));
    EXPECT_TRUE(settings.store());
    EXPECT_EQ(orv::LoadArrayFromFile(path), settings.pathsAndFlags());
    settings.removeTopLevelPath("/z");
    EXPECT_EQ(settings.topLevelPaths(), Paths{"/y"});
}

TEST_F(StorageSettings, TheOlderListStandsInUntilThereIsASelection) {
    ASSERT_TRUE(orv::StoreArrayToFile(
        folder / "share_info.plist",
        Array{Array{"x", "/a"}, Array{"/lone"}, 5, Array{1, 2}, Array{false, "/b", 3}}));
    EXPECT_TRUE(settings.load());
    EXPECT_EQ(settings.pathsAndFlags(), (Array{row("/a"), row("/b")}));
    settings.removeTopLevelPath("/a");
    EXPECT_TRUE(settings.store());
    EXPECT_TRUE(settings.load());
    EXPECT_EQ(settings.pathsAndFlags(), (Array{row("/b")})) << "the new file counts";
    // when it breaks, the older list is not taken for what the user selected since
    folder.makeFile("storage_info.plist", "<plist><array>");
    EXPECT_FALSE(settings.load());
    EXPECT_EQ(settings.pathsAndFlags(), (Array{row("/b")}));
}

TEST_F(StorageSettings, ASelectionThatCannotBeReadIsNeverReplacedByAnEmptyOne) {
    for (const char* content : {"<plist><array>", "garbage", "<plist><dict/></plist>"}) {
        folder.makeFile("storage_info.plist", content);
        orv_StorageSettings fresh(folder.path());
        EXPECT_FALSE(fresh.load());
        fresh.removeTopLevelPath("/");
        log.clear();
        EXPECT_FALSE(fresh.store());
        EXPECT_EQ(log.size(), 1U);
        EXPECT_EQ(test_support::ContentOf(path), content);
    }
    // what the user selects now may take its place; the old content is kept beside it
    settings.setPathsAndFlags({row("/a")});
    EXPECT_TRUE(settings.store());
    EXPECT_EQ(orv::LoadArrayFromFile(path), (Array{row("/a")}));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 3)
        << "the file, its damaged copy and the empty older list";
}

}  // namespace

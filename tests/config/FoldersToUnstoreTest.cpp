#include <gtest/gtest.h>
#include <set>
#include <thread>

#include "config/FoldersToUnstore.h"
#include "config/PropertyFiles.h"
#include "foundation/system/Log.h"
#include "support/TemporaryFolder.h"

namespace {

using quelm::Dictionary;
using Paths = std::vector<std::string>;

class FoldersToUnstore : public testing::Test {
 protected:
    FoldersToUnstore() {
        quelm::SetLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~FoldersToUnstore() override { quelm::SetLogSink(nullptr); }

    test_support::TemporaryFolder folder;
    const std::string file = folder / "unstore.plist";
    std::vector<std::string> log;
};

TEST_F(FoldersToUnstore, AreTakenUntilTheyAreCommitted) {
    EXPECT_TRUE(orv::AddFoldersToUnstore(file, {"/b", "/a", "/c"}));
    EXPECT_TRUE(orv::RemoveFoldersToUnstore(file, {"/c", "/absent"}));
    EXPECT_EQ(orv::GetFoldersToUnstore(file), (Paths{"/a", "/b"}));
    EXPECT_EQ(orv::GetFoldersToUnstore(file), (Paths{"/a", "/b"}));
    EXPECT_EQ(orv::LoadPropertiesFromFile(file), (Dictionary{{"/a", false}, {"/b", false}}));
    EXPECT_TRUE(orv::AddFoldersToUnstore(file, {"/b"}));
    EXPECT_TRUE(orv::CommitUnstoreFolders(file));
    EXPECT_EQ(orv::GetFoldersToUnstore(file), Paths{"/b"}) << "added again meanwhile";
    EXPECT_TRUE(orv::CommitUnstoreFolders(file));
    EXPECT_EQ(orv::LoadPropertiesFromFile(file), Dictionary{});
}

TEST_F(FoldersToUnstore, AFileThatCannotBeReadCountsAsEmptyAndIsKept) {
    folder.makeFile("unstore.plist", "<plist><dict>");
    EXPECT_TRUE(orv::CommitUnstoreFolders(file));
    EXPECT_EQ(test_support::ContentOf(file), "<plist><dict>") << "nothing to commit, no write";
    EXPECT_TRUE(orv::AddFoldersToUnstore(file, {"/a"}));
    EXPECT_EQ(orv::GetFoldersToUnstore(file), Paths{"/a"});
    ASSERT_EQ(log.size(), 1U);
    EXPECT_NE(log[0].find("damaged"), std::string::npos);

    const std::string absent = folder / "absent/unstore.plist";
    EXPECT_FALSE(orv::AddFoldersToUnstore(absent, {"/a"}));
    EXPECT_FALSE(orv::RemoveFoldersToUnstore(absent, {"/a"}));
    EXPECT_FALSE(orv::CommitUnstoreFolders(absent));
    EXPECT_EQ(orv::GetFoldersToUnstore(absent), std::nullopt);
}

TEST_F(FoldersToUnstore, OnePathThatNoFileCanHoldDoesNotStopTheOthers) {
    EXPECT_TRUE(orv::AddFoldersToUnstore(file, {"/a", "/\xff", "/bell\a", "/b"}));
    EXPECT_EQ(orv::GetFoldersToUnstore(file), (Paths{"/a", "/b"}));
    EXPECT_EQ(log.size(), 2U);
}

TEST_F(FoldersToUnstore, NothingIsLostBetweenPanelAndAgent) {
    constexpr std::size_t count = 500;
    std::jthread panel([this] {
        for (std::size_t i = 0; i < count; ++i)
            orv::AddFoldersToUnstore(file, {"/" + std::to_string(i)});
    });
    std::set<std::string> taken;
    while (taken.size() < count) {
        const auto folders = orv::GetFoldersToUnstore(file);
        ASSERT_TRUE(folders);
        taken.insert(folders->begin(), folders->end());
        orv::CommitUnstoreFolders(file);
    }
    EXPECT_EQ(orv::LoadPropertiesFromFile(file), Dictionary{});
}

}  // namespace

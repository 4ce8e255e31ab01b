#include <atomic>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <thread>

#include "foundation/files/Existence.h"
#include "foundation/files/SafeRemoval.h"
#include "foundation/system/Log.h"
#include "support/PrivateMounts.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"
#include "sync/folders/ProjectFolderWipe.h"

namespace {

using namespace quelm::sync;

class ProjectFolderWipe : public testing::Test {
 protected:
    ProjectFolderWipe() {
        quelm::SetLogSink([this](std::string_view line) { log_ += line; });
    }
    ~ProjectFolderWipe() override { quelm::SetLogSink(nullptr); }

    /// Writes the user's list of the master folder; rows are "RM:ID:" and a path.
    void list(const std::vector<std::pair<std::string, std::string>>& rows,
              const std::string& user = "me") {
        std::string content = "RM:default:" + master_ + "\n";
        for (const auto& [start, path] : rows)
            content.append(start).append(path).append("\n");
        folder_.makeFile("home/Projects/.FileCache/project_list_" + user, content);
    }
    EWipeResult wipe() { return WipeProjectFolders("me", folder_ / "home/configuration", master_); }
    [[nodiscard]] bool isThere(const std::string& name) const {
        return quelm::IsNameTaken(folder_ / name);
    }

    test_support::TemporaryFolder folder_;
    const std::string master_ = folder_ / "home/Projects";
    test_support::ScopedEnvironment home_{"HOME", folder_ / "home"};
    std::string log_;
};

TEST_F(ProjectFolderWipe, RemovesTheProjectsThatTheUsersListNames) {
    EXPECT_EQ(wipe(), WIPE_DONE) << "nothing is there";
    folder_.makeFile("home/Projects/A/deep/file");
    folder_.makeFile("home/Projects/line\nbreak/file");
    folder_.makeFile("home/External/.FileCache/project_list_me");
    folder_.makeFile("home/External/file");
    folder_.makeFolder("home/Projects/.Trash");
    list({{"RM:1:", master_ + "/A"},
          {"RE:2:", folder_ / "home/External"},
          {"RM:3:", master_ + "/gone"}});
    EXPECT_EQ(wipe(), WIPE_DONE) << "what the list does not name stays, and the folder with it";
    EXPECT_FALSE(isThere("home/Projects/A"));
    EXPECT_FALSE(isThere("home/External"));
    EXPECT_TRUE(isThere("home/Projects/line\nbreak/file"));
    std::filesystem::remove_all(master_ + "/line\nbreak");
    EXPECT_EQ(wipe(), WIPE_FOLDER_REMAINS);
    list({}, "bob");
    EXPECT_EQ(wipe(), WIPE_DONE) << "the folder is also another user's";
}

TEST_F(ProjectFolderWipe, TouchesNothingWithoutAListOfTheUser) {
    folder_.makeFile("home/Projects/A/file");
    EXPECT_EQ(wipe(), WIPE_FAILED);
    list({{"RM:1:", master_ + "/A"}}, "bob");
    EXPECT_EQ(wipe(), WIPE_FAILED);
    EXPECT_EQ(WipeProjectFolders("../bob", "", master_), WIPE_FAILED);
    EXPECT_TRUE(isThere("home/Projects/A/file"));
    EXPECT_NE(log_.find(master_), std::string::npos);
}

TEST_F(ProjectFolderWipe, FollowsNoEntryOutOfTheUsersFolders) {
    folder_.makeFile("home/Documents/file");
    folder_.makeFile("home/configuration/account_2/file");
    folder_.makeFile("home/Foreign/.FileCache/project_list_bob");
    folder_.makeFile("home/linked/.FileCache/project_list_me");
    folder_.makeFolder("home/Projects");
    folder_.makeLink("home/Projects/link", folder_ / "home/Documents");
    folder_.makeLink("home/Projects/parent", folder_ / "home");
    folder_.makeLink("home/External", folder_ / "home/linked");
    const std::vector<std::pair<std::string, std::string>> traps = {
        {"RM:1:", folder_ / "home/Documents"},
        {"RM:1:", master_ + "/../Documents"},
        {"RM:1:", master_ + "/link"},
        {"RM:1:", master_ + "/parent/Documents"},
        {"RM:1:", master_},
        {"RM:1:", master_ + "/."},
        {"RM:1:", folder_ / "home"},
        {"RM:1:", "/"},
        {"RM:1:", "."},
        {"RE:1:", folder_ / "home/Documents"},
        {"RE:1:", folder_ / "home/Foreign"},
        {"RE:1:", folder_ / "home/External"},
        {"RE:1:", folder_ / "home/Projects/parent/linked"},
        {"RE:1:", folder_ / "home/configuration/account_2"},
    };
    for (const auto& trap : traps) {
        list({trap});
        EXPECT_EQ(wipe(), WIPE_FAILED) << trap.first << trap.second;
    }
    for (const char* name : {"home/Documents/file", "home/configuration/account_2/file",
                             "home/Foreign/.FileCache/project_list_bob",
                             "home/linked/.FileCache/project_list_me", "home/Projects/link"}) {
        EXPECT_TRUE(isThere(name)) << name;
    }
}

TEST_F(ProjectFolderWipe, IsNotLedAwayByAFolderThatIsExchangedMeanwhile) {
    folder_.makeFolder("home/Projects");
    folder_.makeLink("link", folder_ / "home/Documents");
    list({{"RM:1:", master_ + "/team/A"}});
    std::atomic<bool> ended = false;
    std::thread swapper([&] {
        const std::string team = master_ + "/team";
        while (!ended) {
            // a link and a folder change places again and again
            static_cast<void>(
                ::renameat2(AT_FDCWD, (folder_ / "link").c_str(), AT_FDCWD, team.c_str(), 2));
        }
    });
    for (int i = 0; i < 300; ++i) {
        folder_.makeFile("home/Documents/A/file");
        std::error_code ignored;
        std::filesystem::create_directory(master_ + "/team", ignored);
        static_cast<void>(wipe());
        EXPECT_TRUE(isThere("home/Documents/A/file"));
    }
    ended = true;
    swapper.join();
}

TEST_F(ProjectFolderWipe, LeavesWhatCannotGoAndSaysSo) {
    const auto reason = test_support::WhyNoPrivateMounts();
    if (!reason.empty()) GTEST_SKIP() << reason;
    folder_.makeFolder("home/Projects/A/disk");
    folder_.makeFile("home/Projects/B/file");
    list({{"RM:1:", master_ + "/A"}, {"RM:2:", master_ + "/B"}});
    test_support::WithPrivateMounts([this] {
        ASSERT_EQ(::mount("none", (folder_ / "home/Projects/A/disk").c_str(), "tmpfs", 0, nullptr),
                  0);
        folder_.makeFile("home/Projects/A/disk/file");
        EXPECT_EQ(wipe(), WIPE_FAILED);
        EXPECT_TRUE(isThere("home/Projects/A/disk/file"));
        EXPECT_FALSE(isThere("home/Projects/B"));
        EXPECT_NE(log_.find("is another file system"), std::string::npos) << log_;
    });
}

}  // namespace

#include <gtest/gtest.h>
#include <set>

#include "foundation/files/Existence.h"
#include "support/TemporaryFolder.h"
#include "sync/folders/ProjectFolderOwner.h"

namespace {

using namespace quelm::sync;
using quelm::os::EStatusCode;

class ProjectFolderOwner : public testing::Test {
 protected:
    /// The answer of both functions, which have to agree.
    std::string ownerOf(const std::string& folder) {
        const std::string asked = FindProjectFolderOwner("me", folder);
        EXPECT_EQ(DetectProjectFolderOwner("me", folder), asked);
        return asked;
    }
    std::set<std::string> namesIn(const std::string& folder) {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            names.insert(entry.path().filename().string());
        return names;
    }
    using Names = std::set<std::string>;

    test_support::TemporaryFolder folder_;
};

TEST_F(ProjectFolderOwner, IsToldByTheListFilesOrTheContent) {
    EXPECT_EQ(ownerOf(folder_ / "missing"), "");
    EXPECT_EQ(ownerOf(folder_.makeFolder("free")), "");
    folder_.makeFile("hidden/.x");
    EXPECT_EQ(ownerOf(folder_ / "hidden"), "");
    folder_.makeFile("full/x");
    EXPECT_EQ(ownerOf(folder_ / "full/"), "<not-empty>");
    folder_.makeFolder("bare/.FileCache");
    EXPECT_EQ(ownerOf(folder_ / "bare"), "<no-ID>");
    folder_.makeFile("other/.FileCache/project_list_zoe");
    folder_.makeFile("other/.FileCache/project_list_bob");
    EXPECT_EQ(ownerOf(folder_ / "other"), "bob");
    EXPECT_EQ(ownerOf(folder_ / "other/deep/deeper"), "<recursion>");
    EXPECT_EQ(namesIn(folder_ / "other/.FileCache"),
              (Names{"project_list_bob", "project_list_zoe"}));
    folder_.makeFile("flat/.FileCache");
    EXPECT_EQ(ownerOf(folder_ / "flat/sub"), "") << "a file of that name makes no sync root";
}

TEST_F(ProjectFolderOwner, DetectingDeletesTheListFilesOfOthersOnlyInTheUsersOwnFolder) {
    for (const char* name : {"project_list_me", "project_list_bob", "project_list_a\nb", "other"})
        folder_.makeFile(std::string("mine/.FileCache/") + name);
    EXPECT_EQ(FindProjectFolderOwner("me", folder_ / "mine"), "me");
    EXPECT_EQ(namesIn(folder_ / "mine/.FileCache").size(), 4U) << "asking deletes nothing";
    EXPECT_EQ(DetectProjectFolderOwner("me", folder_ / "mine"), "me");
    EXPECT_EQ(namesIn(folder_ / "mine/.FileCache"), (Names{"other", "project_list_me"}));
}

TEST_F(ProjectFolderOwner, ACacheFolderThatIsALinkIsNone) {
    folder_.makeFile("elsewhere/project_list_me");
    folder_.makeFile("elsewhere/project_list_bob");
    folder_.makeFolder("linked");
    folder_.makeLink("linked/.FileCache", folder_ / "elsewhere");
    EXPECT_EQ(ownerOf(folder_ / "linked"), "");
    EXPECT_NE(TakeProjectFolderOwnership(folder_ / "linked"), EStatusCode::SUCCESS);
    EXPECT_EQ(LoadProjectFolderInfo(folder_ / "linked", "").status, PROJECT_FOLDER_UNKNOWN);
    EXPECT_EQ(namesIn(folder_ / "elsewhere").size(), 2U);
}

TEST_F(ProjectFolderOwner, CanBeTaken) {
    folder_.makeFile("full/.FileCache/project_list_bob");
    folder_.makeFile("full/.FileCache/database");
    EXPECT_EQ(static_cast<int>(TakeProjectFolderOwnership(folder_ / "full")), 0);
    EXPECT_EQ(namesIn(folder_ / "full/.FileCache"), Names{"database"});
    EXPECT_EQ(ownerOf(folder_ / "full"), "<no-ID>");
    folder_.makeFolder("bare");
    EXPECT_EQ(TakeProjectFolderOwnership(folder_ / "bare"), EStatusCode::SUCCESS);
    EXPECT_TRUE(quelm::IsFolder(folder_ / "bare/.FileCache"));
    EXPECT_NE(TakeProjectFolderOwnership(folder_ / "missing"), EStatusCode::SUCCESS);
}

TEST_F(ProjectFolderOwner, IsLoadedWithTheProjectsOfTheOnlyList) {
    const auto statusOf = [this](const char* name) {
        return LoadProjectFolderInfo(folder_ / name, "").status;
    };
    EXPECT_EQ(statusOf("missing"), PROJECT_FOLDER_UNKNOWN);
    folder_.makeFolder("f/.FileCache");
    EXPECT_EQ(statusOf("f"), PROJECT_FOLDER_NO_LIST);
    folder_.makeFile("f/.FileCache/project_list_bob", "RM:default:/p\nRM:9:/p/9\nRM:10:/p/10\n");
    const auto info = LoadProjectFolderInfo(folder_ / "f", "");
    EXPECT_EQ(info.status, PROJECT_FOLDER_LOADED);
    EXPECT_EQ(info.ownerId, "bob");
    EXPECT_EQ(info.projectIds, (Names{"10", "9"}));
    folder_.makeFile("f/.FileCache/project_list_x");
    EXPECT_EQ(statusOf("f"), PROJECT_FOLDER_SEVERAL_LISTS);
}

}  // namespace

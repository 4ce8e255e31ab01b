#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/Command.h"
#include "config/ConfigurationPath.h"
#include "support/TemporaryFolder.h"

namespace {

using nlohmann::json;
using orv::cli::ExitCode;

class ProjectFolderCommands : public testing::Test {
 protected:
    ProjectFolderCommands() { orv::SetConfigBasePath(folder_.makeFolder("configuration")); }
    ~ProjectFolderCommands() override { orv::ClearConfigBasePath(); }

    ExitCode run(std::vector<std::string> words) {
        out_.str("");
        words.insert(words.end(), {"--json"});
        return orv::cli::RunCommandLine(words, out_, err_);
    }

    test_support::TemporaryFolder folder_;
    std::ostringstream out_, err_;
};

TEST_F(ProjectFolderCommands, ShowWhoseItIsAndDeleteNothing) {
    const std::string list =
        folder_.makeFile("f/.FileCache/project_list_", "RM:default:/f\nVE:7:/e\n");
    EXPECT_EQ(run({"projects", "folder", folder_ / "f"}), ExitCode::Done);
    const json entries = {{{"fsType", "FS_TYPE_REGULAR"},
                           {"rootType", "MASTER_PROJECT_FOLDER"},
                           {"projectId", ""},
                           {"path", "/f"},
                           {"isDefault", true}},
                          {{"fsType", "FS_TYPE_VIRTUAL"},
                           {"rootType", "EXTERNAL_PROJECT_FOLDER"},
                           {"projectId", "7"},
                           {"path", "/e"},
                           {"isDefault", false}}};
    EXPECT_EQ(json::parse(out_.str()),
              (json{{"owner", ""}, {"status", 3}, {"projectIds", {"7"}}, {"entries", entries}}));
    EXPECT_EQ(run({"projects", "list-file", list}), ExitCode::Done);
    EXPECT_EQ(json::parse(out_.str()), entries);
    folder_.makeFile("f/.FileCache/project_list_bob");
    EXPECT_EQ(run({"projects", "folder", folder_ / "f"}), ExitCode::Done);
    EXPECT_EQ(json::parse(out_.str())["status"], 1);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_ / "f/.FileCache"), {}), 2)
        << "although the user's own is among them";
    EXPECT_TRUE(std::filesystem::is_empty(folder_ / "configuration"));
}

TEST_F(ProjectFolderCommands, SayWhatIsNoFolderAndNoList) {
    EXPECT_EQ(run({"projects", "folder", folder_ / "missing"}), ExitCode::Failed);
    EXPECT_EQ(run({"projects", "list-file", folder_.path()}), ExitCode::Failed);
    EXPECT_NE(err_.str().find(folder_ / "missing"), std::string::npos);
    EXPECT_EQ(run({"projects", "list", "--mine"}), ExitCode::Usage) << "another command's flag";
}

}  // namespace

#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <sys/stat.h>

#include "cli/Command.h"
#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "foundation/system/Log.h"
#include "platform/Services.h"
#include "support/FakeVolumes.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::cli::ExitCode;

class CommandLine : public testing::Test {
 protected:
    CommandLine() { orv::ClearConfigBasePath(); }
    ~CommandLine() override {
        orv::ClearConfigBasePath();
        orv::AgentID.clear();
        platform::ProcessServices() = {};
    }

    ExitCode run(const std::vector<std::string>& words) {
        out.str("");
        err.str("");
        return orv::cli::RunCommandLine(words, out, err);
    }

    test_support::TemporaryFolder folder;
    test_support::ScopedEnvironment home{"HOME", folder.path()};
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(CommandLine, PrintsThePathAndNothingElse) {
    const std::string base = folder.path() + "/Library/Preferences/com.corvanta.orv";
    EXPECT_EQ(run({"config", "path"}), ExitCode::Done);
    EXPECT_EQ(out.str(), base + "\n");
    EXPECT_EQ(run({"config", "path", "user_info.plist"}), ExitCode::Done);
    EXPECT_EQ(out.str(), base + "/user_info.plist\n");
    EXPECT_EQ(err.str(), "");
}

TEST_F(CommandLine, AnAccountHasAFolderOfItsOwn) {
    EXPECT_EQ(run({"--account", "42", "config", "path"}), ExitCode::Done);
    EXPECT_TRUE(out.str().ends_with("com.corvanta.orv/account_42\n")) << out.str();
    EXPECT_EQ(run({"--account", "../evil", "config", "path"}), ExitCode::Usage);
}

TEST_F(CommandLine, WrongUsageIsSaidOnStandardErrorWithStatusTwo) {
    const std::vector<std::vector<std::string>> wrong = {{},
                                                         {"confg"},
                                                         {"config"},
                                                         {"config", "show"},
                                                         {"config", "path", "a", "b"},
                                                         {"--frobnicate"},
                                                         {"--account"}};
    for (const auto& words : wrong) {
        EXPECT_EQ(run(words), ExitCode::Usage);
        EXPECT_EQ(out.str(), "");
        EXPECT_NE(err.str(), "");
    }
}

TEST_F(CommandLine, TheHelpNamesEveryCommand) {
    EXPECT_EQ(run({"--help"}), ExitCode::Done);
    for (const auto& command : orv::cli::AllCommands()) {
        EXPECT_NE(out.str().find(command.name), std::string::npos) << command.name;
    }
}

TEST_F(CommandLine, ShowsEveryTypeAsJson) {
    const std::string path = folder.path() + "/all.plist";
    orv::StorePropertiesToFile(path,
                               quelm::Dictionary{{"array", quelm::Array{1, -2.5, "x"}},
                                                 {"data", quelm::Data{std::string("\0\xff", 2)}},
                                                 {"date", quelm::Date{0}},
                                                 {"no", false},
                                                 {"text", "a\"b"}});
    ASSERT_EQ(run({"config", "show", path, "--json"}), ExitCode::Done) << err.str();
    const auto expected = nlohmann::json::parse(R"({
        "array": [1, -2.5, "x"], "data": {"data": "AP8="},
        "date": {"date": "1970-01-01T00:00:00Z"}, "no": false, "text": "a\"b"})");
    EXPECT_EQ(nlohmann::json::parse(out.str()), expected);
    EXPECT_EQ(out.str().find('\n'), out.str().size() - 1);
    ASSERT_EQ(run({"config", "show", path}), ExitCode::Done);
    EXPECT_NE(out.str().find("\"date\": date 1970-01-01T00:00:00Z\n"), std::string::npos);
}

TEST_F(CommandLine, AFileThatCannotBeShownIsLeftAsItWas) {
    const std::string broken = folder.path() + "/broken.plist";
    std::ofstream(broken) << "<plist><dict>";
    EXPECT_EQ(run({"config", "show", broken, "--json"}), ExitCode::Failed);
    EXPECT_EQ(out.str(), "");
    EXPECT_NE(err.str().find(broken), std::string::npos);
    std::string content;
    std::getline(std::ifstream(broken), content);
    EXPECT_EQ(content, "<plist><dict>");

    EXPECT_EQ(run({"config", "show", "absent.plist"}), ExitCode::Failed);
    struct stat info = {};
    EXPECT_NE(stat((folder.path() + "/Library").c_str(), &info), 0) << "showing made a folder";
}

TEST_F(CommandLine, ClassifiesAPath) {
    auto volumes = std::make_unique<test_support::FakeVolumes>();
    volumes->volumes.push_back({"/", "server:/export", "nfs", false, false, false});
    platform::ProcessServices().volumes = std::move(volumes);
    const std::string path = folder.path() + "/.cache/x";
    ASSERT_EQ(run({"path", "classify", path, "--json"}), ExitCode::Done);
    EXPECT_EQ(nlohmann::json::parse(out.str()),
              nlohmann::json::parse(R"({"hidden": true, "system": false, "local": false,
                                        "insideHome": true, "volumeType": 3})"));
}

TEST_F(CommandLine, WithoutAnInterfaceThereIsNoHardwareId) {
    EXPECT_EQ(run({"hardware-id"}), ExitCode::Failed);
    EXPECT_EQ(out.str(), "");
}

}  // namespace

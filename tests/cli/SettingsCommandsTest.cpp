#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "agentlink/AgentEventQueue.h"
#include "cli/Command.h"
#include "cli/Spelling.h"
#include "config/AgentSettingsTable.h"
#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "platform/Services.h"
#include "support/ProcessNotifications.h"
#include "support/TemporaryFolder.h"

namespace {

using nlohmann::json;
using orv::cli::ExitCode;
using quelm::Array;
using quelm::Dictionary;

class SettingsCommands : public testing::Test {
 protected:
    SettingsCommands() {
        orv::SetConfigBasePath(folder.path());
        orv::BeginAgentEvents();
    }
    ~SettingsCommands() override {
        orv::EndAgentEvents(std::chrono::seconds(10));
        orv::ClearConfigBasePath();
        orv::AgentID.clear();
    }

    ExitCode run(const std::vector<std::string>& words) {
        out_.str("");
        err_.str("");
        return orv::cli::RunCommandLine(words, out_, err_);
    }
    void store(const quelm::Value& content) const {
        ASSERT_TRUE(orv::StorePropertiesToFile(record, content));
    }
    [[nodiscard]] std::optional<quelm::Value> stored() const {
        return orv::LoadPropertiesFromFile(record);
    }

    test_support::ProcessNotifications center_;
    test_support::TemporaryFolder folder;
    const std::string record = folder / "user_info.plist";
    std::ostringstream out_, err_;
};

TEST_F(SettingsCommands, ShowWhatIsInEffect) {
    store(Dictionary{{"trace_level", 7}, {"email", 5}, {"user", "anna"}, {"foreign", 1}});
    ASSERT_EQ(run({"settings", "list", "--json"}), ExitCode::Done);
    const auto list = json::parse(out_.str());
    EXPECT_EQ(list["trace_level"], 7);
    EXPECT_EQ(list["email"], "anna");
    EXPECT_FALSE(list.contains("foreign"));
    EXPECT_FALSE(list.contains("team_name"));
    EXPECT_EQ(run({"settings", "get", "email"}), ExitCode::Done);
    EXPECT_EQ(out_.str(), "anna\n");
    EXPECT_EQ(run({"settings", "get", "team_name", "--json"}), ExitCode::Done);
    EXPECT_EQ(out_.str(), "null\n");
}

TEST_F(SettingsCommands, ChangeOneKeyAndTellIt) {
    store(Dictionary{{"foreign", quelm::Data{"x"}}, {"policy_projects", 2}});
    EXPECT_EQ(run({"--account", "42", "settings", "set", "sync_project_accept_mode", "-5"}),
              ExitCode::Done)
        << err_.str();
    EXPECT_EQ(stored(), (Dictionary{{"foreign", quelm::Data{"x"}},
                                    {"policy_projects", 2},
                                    {"sync_project_accept_mode", -5}}));
    const auto posted = center_->posted();
    ASSERT_EQ(posted.size(), 1U);
    EXPECT_EQ(posted[0].name, "com.quelm.client.SettingsChanged");
    EXPECT_EQ(posted[0].payload, (Dictionary{{"agent-id", "42"}, {"hint", 0x4000}}));
}

TEST_F(SettingsCommands, NeedNoBus) {
    platform::EndProcessServices();
    EXPECT_EQ(run({"settings", "set", "two_way_sync", "true"}), ExitCode::Done);
    EXPECT_EQ(stored(), (Dictionary{{"two_way_sync", true}}));
    EXPECT_EQ(out_.str(), "");
    EXPECT_NE(err_.str(), "");
}

TEST_F(SettingsCommands, TakeOnlyValuesOfTheKeysType) {
    struct Case {
        std::string key, value;
        ExitCode code;
        std::string message;
    };
    const std::vector<Case> cases = {
        {"trace_levle", "1", ExitCode::Usage, "trace_level"},
        {"e-mail", "x", ExitCode::Usage, "email"},
        {"trace_level", "2147483648", ExitCode::Usage, "integer"},
        {"trace_level", "1.5", ExitCode::Usage, "integer"},
        {"trace_level", "", ExitCode::Usage, "integer"},
        {"limited_connection_file_size", "9223372036854775808", ExitCode::Usage, "long"},
        {"two_way_sync", "1", ExitCode::Usage, "boolean"},
        {"team_name", "\xff", ExitCode::Usage, "text"},
        {"secure_delete", "true", ExitCode::Failed, "secure_delete"},
        {"policy_backup_paths", "/a", ExitCode::Failed, "policy_backup_paths"},
    };
    store(Dictionary{{"a", 1}});
    for (const Case& row : cases) {
        EXPECT_EQ(run({"settings", "set", row.key, row.value}), row.code) << row.key;
        EXPECT_NE(err_.str().find(row.message), std::string::npos) << err_.str();
        EXPECT_EQ(stored(), (Dictionary{{"a", 1}}));
    }
    EXPECT_TRUE(center_->posted().empty());
    EXPECT_EQ(run({"settings", "get", "trace"}), ExitCode::Usage);
    EXPECT_EQ(run({"settings", "set", "badge_handled_file_extension", "doc,,xls"}), ExitCode::Done);
    EXPECT_EQ(run({"settings", "get", "badge_handled_file_extension"}), ExitCode::Done);
    EXPECT_EQ(out_.str(), "[\"doc\",\"\",\"xls\"]\n");
}

TEST_F(SettingsCommands, LeaveAloneWhatCannotBeReadOrWritten) {
    const std::vector<std::vector<std::string>> commands = {
        {"settings", "list"}, {"settings", "set", "trace_level", "1"}, {"folders", "rows"}};
    for (const char* content : {"<plist>", "<plist><string>foreign</string></plist>"}) {
        for (const char* name : {"user_info.plist", "storage_info.plist"})
            folder.makeFile(name, content);
        for (const auto& words : commands) {
            EXPECT_EQ(run(words), ExitCode::Failed);
            EXPECT_NE(err_.str().find("info.plist"), std::string::npos);
        }
        EXPECT_EQ(test_support::ContentOf(record), content);
    }
    orv::SetConfigBasePath(record + "/absent");
    EXPECT_EQ(run({"settings", "set", "trace_level", "1"}), ExitCode::Failed);
    orv::SetConfigBasePath(folder / "absent");
    EXPECT_EQ(run({"folders", "roots", "--json"}), ExitCode::Done);
    EXPECT_EQ(out_.str(), "[]\n");
    EXPECT_TRUE(center_->posted().empty());
}

TEST_F(SettingsCommands, ShowTheSelection) {
    ASSERT_TRUE(orv::StoreArrayToFile(
        folder / "storage_info.plist",
        Array{Array{"/a/b", true}, Array{"/a", true}, Array{"/c", false}, Array{"/d", 1}, 7}));
    EXPECT_EQ(run({"folders", "rows", "--json"}), ExitCode::Done);
    EXPECT_EQ(out_.str(), "[[\"/a/b\",true],[\"/a\",true],[\"/c\",false],[\"/d\",false]]\n");
    EXPECT_EQ(run({"folders", "rows"}), ExitCode::Done);
    EXPECT_EQ(out_.str(), "+ /a/b\n+ /a\n- /c\n- /d\n");
    EXPECT_EQ(run({"folders", "roots", "--json"}), ExitCode::Done);
    EXPECT_EQ(out_.str(), "[\"/a\"]\n");
}

TEST(NearestWord, TakesTheFewestEdits) {
    constexpr std::array<std::string_view, 3> words = {"kitten", "sitting", "rcid"};
    EXPECT_EQ(orv::cli::NearestWord("sittin", words), "sitting");
    EXPECT_EQ(orv::cli::NearestWord("xkitten", words), "kitten");
    EXPECT_EQ(orv::cli::NearestWord("", words), "rcid");
    EXPECT_EQ(orv::cli::NearestWord(std::string(1 << 20U, 'x'), words), "kitten") << "the first";
    EXPECT_EQ(orv::cli::NearestWord("a", {}), "");
}

}  // namespace

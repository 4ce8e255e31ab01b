#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "foundation/system/Log.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using quelm::Array;
using quelm::Dictionary;

class ConfigurationPath : public testing::Test {
 protected:
    ConfigurationPath() {
        orv::ClearConfigBasePath();
        fs::create_directories(accounts);
    }
    ~ConfigurationPath() override {
        orv::ClearConfigBasePath();
        orv::AgentID.clear();
        quelm::SetLogSink({});
    }

    void storeAccounts(Array rows) {
        ASSERT_TRUE(orv::StoreArrayToFile(accounts + "/alternative_configs.plist", rows));
        orv::ClearConfigBasePath();
    }

    static Dictionary row(const char* label) {
        return {{"active_config", true}, {"label_of_config", label}, {"server_address", "s"},
                {"web_address", "w"},    {"update_address", "u"},    {"api_address", "a"}};
    }

    test_support::TemporaryFolder folder;
    test_support::ScopedEnvironment home{"HOME", folder.path()};
    const std::string standard = folder.path() + "/Library/Preferences/com.corvanta.orv";
    const std::string accounts =
        folder.path() + "/Library/Preferences/com.quelm.configs/com.corvanta.orv";
};

TEST_F(ConfigurationPath, IsTheDefaultOneWithoutAnActiveAccount) {
    EXPECT_EQ(orv::GetConfigurationPath(), standard);
    storeAccounts({Dictionary{{"label_of_config", "Work"}}, "no row", 3});
    EXPECT_EQ(orv::GetConfigurationPath("a.plist"), standard + "/a.plist");
    storeAccounts({row("Default")});
    EXPECT_EQ(orv::GetConfigurationPath(), standard);
    EXPECT_FALSE(fs::exists(accounts + "/Default"));
}

TEST_F(ConfigurationPath, TheFirstActiveAccountWinsAndIsSeededOnce) {
    storeAccounts({Dictionary{{"active_config", false}, {"label_of_config", "Off"}}, row("Work"),
                   row("Other")});
    ASSERT_EQ(orv::GetConfigurationPath(), accounts + "/Work");
    struct stat info = {};
    ASSERT_EQ(stat((accounts + "/Work").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0700U);
    EXPECT_EQ(orv::LoadPropertiesFromFile(accounts + "/Work/user_info.plist"),
              (Dictionary{{"config_label", "Work"}, {"server", "s"}}));
    EXPECT_EQ(orv::LoadPropertiesFromFile(accounts + "/Work/server_info.plist"),
              (Dictionary{{"api_server", "a"}, {"update_server", "u"}, {"web_server", "w"}}));
    EXPECT_FALSE(fs::exists(accounts + "/Other"));
}

TEST_F(ConfigurationPath, NothingIsSeededWithoutAllAddressesOrIntoAnExistingFolder) {
    Dictionary incomplete = row("Half");
    incomplete.erase("api_address");
    storeAccounts({incomplete});
    EXPECT_EQ(orv::GetConfigurationPath(), accounts + "/Half");
    EXPECT_FALSE(fs::exists(accounts + "/Half"));

    fs::create_directory(accounts + "/There");
    storeAccounts({row("There")});
    EXPECT_EQ(orv::GetConfigurationPath(), accounts + "/There");
    EXPECT_TRUE(fs::is_empty(accounts + "/There"));
}

TEST_F(ConfigurationPath, ALabelCannotLeadOutOfTheAccountsFolders) {
    std::vector<std::string> log;
    quelm::SetLogSink([&](std::string_view line) { log.emplace_back(line); });
    for (const char* label : {"../../evil", "..", ".", "", "a/b"}) {
        storeAccounts({row(label)});
        EXPECT_EQ(orv::GetConfigurationPath(), standard) << label;
    }
    EXPECT_EQ(log.size(), 5U);
    EXPECT_FALSE(fs::exists(folder.path() + "/Library/evil"));
}

TEST_F(ConfigurationPath, AnAgentOfSeveralHasAFolderInTheBasePath) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", ""}, {"1", ""}, {"42", "/account_42"}};
    for (const auto& [id, suffix] : cases) {
        orv::AgentID = id;
        orv::ClearConfigBasePath();
        EXPECT_EQ(orv::GetConfigurationPath(), standard + suffix);
    }
}

TEST_F(ConfigurationPath, IsKeptUntilItIsCleared) {
    ASSERT_EQ(orv::GetConfigurationPath(), standard);
    ASSERT_TRUE(orv::StoreArrayToFile(accounts + "/alternative_configs.plist", Array{row("Work")}));
    EXPECT_EQ(orv::GetConfigurationPath(), standard);
    orv::ClearConfigBasePath();
    EXPECT_EQ(orv::GetConfigurationPath(), accounts + "/Work");
    orv::SetConfigBasePath("/elsewhere");
    EXPECT_EQ(orv::GetConfigurationPath("x"), "/elsewhere/x");
}

TEST_F(ConfigurationPath, ItsFormsAgree) {
    orv::SetConfigBasePath("/base");
    std::string text = "old";
    EXPECT_EQ(&orv::GetConfigurationPath(text, "f"), &text);
    EXPECT_EQ(text, "/base/f");
    EXPECT_EQ(orv::GetConfigurationNsPath(std::nullopt), "/base");
    EXPECT_EQ(orv::GetConfigurationNsPath(""), "/base");
    EXPECT_EQ(orv::GetConfigurationNsPath("user_info.plist"), "/base/user_info.plist");

    std::array<char, 8> buffer;
    buffer.fill('#');
    orv::GetConfigurationPath(buffer.data(), nullptr, 3);
    EXPECT_EQ(std::string(buffer.data(), 5), "/ba##");
    EXPECT_STREQ(orv::GetConfigurationPath(buffer.data(), "f", buffer.size()), "/base/f");
}

}  // namespace

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "config/AgentSettings.h"
#include "config/AgentSettingsHooks.h"
#include "config/PropertyFiles.h"
#include "foundation/system/Log.h"
#include "foundation/system/UserAndComputer.h"
#include "platform/Services.h"
#include "support/FakeKeychain.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::orvAgentSettings;
using platform::GenericPasswordItem;
using quelm::Dictionary;

class AgentSettings : public testing::Test {
 protected:
    AgentSettings() {
        platform::ProcessServices().keychain = std::make_unique<test_support::FakeKeychain>();
        keychain =
            static_cast<test_support::FakeKeychain*>(platform::ProcessServices().keychain.get());
        quelm::SetLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~AgentSettings() override {
        quelm::SetLogSink(nullptr);
        platform::ProcessServices() = {};
        orv::ProcessAgentSettingsHooks() = {};
    }

    [[nodiscard]] orvAgentSettings recordOf(const Dictionary& content) const {
        orv::StorePropertiesToFile(path, content);
        orvAgentSettings record(folder.path());
        EXPECT_TRUE(record.load());
        return record;
    }
    [[nodiscard]] std::optional<quelm::Value> file() const {
        return orv::LoadPropertiesFromFile(path);
    }

    test_support::TemporaryFolder folder;
    test_support::ScopedEnvironment home{"HOME", "/home/anna"};
    const std::string path = folder / "user_info.plist";
    test_support::FakeKeychain* keychain;
    std::vector<std::string> log;
};

TEST_F(AgentSettings, SavingMergesAndShowsWhatOthersWrote) {
    auto record = recordOf({{"team_name", "Sales"}, {"foreign", quelm::Data{"x"}}});
    ASSERT_TRUE(orv::ChangePropertiesInFile(path, {{"rcid", "17"}}));
    record.setTraceLevel(5);
    EXPECT_TRUE(record.store());
    const Dictionary merged{
        {"team_name", "Sales"}, {"foreign", quelm::Data{"x"}}, {"rcid", "17"}, {"trace_level", 5}};
    EXPECT_EQ(file(), merged);
    EXPECT_EQ(record.rcid(), "17");
    EXPECT_TRUE(record.isEqualToAgentSettings(recordOf(merged)));
}

TEST_F(AgentSettings, ASaveThatFailsLeavesFileAndRecord) {
    auto record = recordOf({{"team_name", "Sales"}});
    const std::string before = test_support::ContentOf(path);
    ASSERT_TRUE(record.setUserId("u"));
    for (const char* impossible : {"bell\a", "\xff"}) {
        EXPECT_FALSE(record.setTeamName(impossible)) << "no file can hold it";
        EXPECT_FALSE(record.setUserId(impossible));
    }
    EXPECT_FALSE(record.storeToSpecificPath(folder / "absent/user_info.plist"));
    EXPECT_EQ(record.teamName(), "Sales");
    EXPECT_EQ(record.userId(), "u");
    EXPECT_EQ(test_support::ContentOf(path), before);
}

TEST_F(AgentSettings, ARecordThatCannotBeReadKeepsItsValues) {
    auto record = recordOf({{"team_name", "Sales"}});
    for (const char* content : {"<plist><dict>", "", "<plist><array/></plist>"}) {
        folder.makeFile("user_info.plist", content);
        EXPECT_TRUE(record.load());
        EXPECT_EQ(record.teamName(), "Sales");
    }
    orvAgentSettings pathless;
    EXPECT_FALSE(pathless.load());
    EXPECT_FALSE(pathless.store());
    EXPECT_TRUE(pathless.loadFromSpecificPath(path)) << "and the path is remembered";
    EXPECT_TRUE(pathless.store());
    EXPECT_FALSE(orvAgentSettings("").load()) << "no file in the root folder";
}

TEST_F(AgentSettings, TheComputersOwnNameIsNotWritten) {
    const std::string own = quelm::GetComputerName();
    auto record = recordOf({});
    EXPECT_TRUE(record.setDesktopName(own));
    EXPECT_EQ(record.getStringProperty("desktop_name"), std::nullopt);
    EXPECT_TRUE(record.setDesktopName("Attic"));
    EXPECT_EQ(record.desktopName(), "Attic");
    EXPECT_TRUE(record.setDesktopName(own));
    EXPECT_EQ(record.getStringProperty("desktop_name"), own);
    EXPECT_EQ(recordOf({{"desktop_name", ""}}).desktopName(), own);
}

TEST_F(AgentSettings, OtherTextsMayBeEmptyAndTheUserIdMayGo) {
    auto record = recordOf({{"user", "anna"}, {"user_id", "7"}});
    EXPECT_EQ(record.email(), "anna");
    EXPECT_TRUE(record.setEmail(""));
    EXPECT_EQ(record.email(), "");
    EXPECT_EQ(record.fullName(), "anna");
    EXPECT_TRUE(record.setUserId("8"));
    EXPECT_EQ(record.userId(), "8");
    EXPECT_TRUE(record.setUserId(std::nullopt));
    EXPECT_EQ(record.userId(), std::nullopt);
    record.setSyncEnabled(true);
    EXPECT_TRUE(record.loftmereFolder());
}

TEST_F(AgentSettings, CellsHaveNamesFromOneToEleven) {
    const std::vector<std::pair<std::string, std::string>> names = {
        {"1", "US1"},   {"3", "CA3"}, {"10", "EU10"}, {"11", "EU11"}, {"12", "12"},
        {"0", "0"},     {"-1", "-1"}, {"", ""},       {"x", "x"},     {"99999999999999999999", ""},
        {"5 x", "AU5"},
    };
    for (const auto& [id, name] : names) {
        EXPECT_EQ(recordOf({{"cell_id", id}}).cellName(), id.size() > 10 ? id : name);
    }
    EXPECT_EQ(orvAgentSettings().cellName(), std::nullopt);
}

TEST_F(AgentSettings, TheProjectFolderIsNamedByLabelAndTeam) {
    const std::string base = "/home/anna/Quelm Projects";
    const std::string product = "Tidewell Backup";
    struct Case {
        std::string label, team, id, suffix;
    };
    const std::vector<Case> cases = {
        {product, "Sales", "", ""},
        {product, "Sales", "account_2", " (Sales)"},
        {"Work", "Sales", "", " (Work)"},
        {"Work", "Sales", "account_2", " (Work-Sales)"},
        {"Work", "Sales", "account_1", " (Work)"},
        {"%@ %n", "%s", "account_2", " (%@ %n-%s)"},
        {"../..", "/etc", "account_2", " (.._..-_etc)"},
    };
    for (const Case& row : cases) {
        folder.makeFolder(row.id.empty() ? "." : row.id);
        orvAgentSettings record(row.id.empty() ? folder.path() : folder / row.id);
        record.setConfigLabel(row.label);
        record.setTeamName(row.team);
        EXPECT_EQ(record.masterProjectFolder(), base + row.suffix);
        record.setMasterProjectFolder("/elsewhere");
        EXPECT_EQ(record.masterProjectFolder(), "/elsewhere");
        record.setMasterProjectFolder("");
        EXPECT_EQ(record.masterProjectFolder(), base + row.suffix);
    }
}

TEST_F(AgentSettings, ABrandHasTheLabel) {
    orv::ProcessAgentSettingsHooks() = {
        [](const std::string& text) { return text == "Tidewell Backup" ? "Acme" : text; }};
    EXPECT_EQ(orvAgentSettings().configLabel(), "Acme");
    EXPECT_EQ(orvAgentSettings().webAccessLabel(), "Acme-secureWebAccess");
    EXPECT_EQ(orvAgentSettings(folder.path()).masterProjectFolder(),
              "/home/anna/Quelm Projects (Acme)")
        << "the branded label is not the product's";
    EXPECT_EQ(recordOf({{"config_label", "Tidewell Backup"}}).configLabel(), "Tidewell Backup");
    EXPECT_EQ(orvAgentSettings("/other/account_2").masterProjectFolder(),
              "/home/anna/Quelm Projects (Acme-)");
}

TEST_F(AgentSettings, TheKeyIsKeptUnderLabelAndRcid) {
    const auto record = recordOf({{"config_label", "Work"}, {"rcid", "17"}, {"user", "anna"}});
    EXPECT_TRUE(record.needSetup());
    EXPECT_EQ(record.readAuthenticationKey(), std::nullopt);
    EXPECT_FALSE(record.storeAuthenticationKey(""));
    EXPECT_TRUE(record.storeAuthenticationKey("secret"));
    EXPECT_EQ(record.readAuthenticationKey(), "secret");
    EXPECT_FALSE(record.needSetup());
    EXPECT_NE(keychain->find(GenericPasswordItem{"Work", "17"}), nullptr);

    keychain->create(GenericPasswordItem{"Work", "anna"}, "", {}, "x", {});
    keychain->create(GenericPasswordItem{"Other", "17"}, "", {}, "x", {});
    record.cleanupKeychain();
    EXPECT_EQ(keychain->size(), 1U);
    EXPECT_TRUE(record.needSetup());

    const auto nameless = recordOf({{"rcid", ""}});
    keychain->calls.clear();
    EXPECT_EQ(nameless.readAuthenticationKey(), "");
    EXPECT_FALSE(nameless.storeAuthenticationKey("secret"));
    EXPECT_TRUE(nameless.needSetup());
    EXPECT_TRUE(keychain->calls.empty());
    std::filesystem::remove(path);
    EXPECT_TRUE(record.needSetup()) << "no file";
}

using Calls = std::vector<std::pair<std::string, bool>>;

TEST_F(AgentSettings, AskingOnceMakesTheItemAnew) {
    const auto record = recordOf({{"config_label", "Work"}, {"rcid", "17"}});
    const auto callsOf = [this, &record](bool overwrite) {
        keychain->calls.clear();
        keychain->locked = true;
        EXPECT_EQ(record.readAuthenticationKeyWithOverwrite(overwrite), "secret");
        Calls calls;
        for (const auto& call : keychain->calls) {
            using Interaction = platform::Keychain::Interaction;
            calls.emplace_back(call.name, call.interaction == Interaction::Allowed);
        }
        return calls;
    };
    ASSERT_TRUE(record.storeAuthenticationKey("secret"));
    EXPECT_EQ(callsOf(false), (Calls{{"read", false}, {"read", true}}));
    EXPECT_EQ(callsOf(true), (Calls{{"read", false},
                                    {"read", true},
                                    {"remove", true},
                                    {"replace", false},
                                    {"create", false}}));
    EXPECT_TRUE(log.empty());

    keychain->failures["create"] = 1;
    callsOf(true);
    EXPECT_NE(keychain->find(GenericPasswordItem{"Work", "17"}), nullptr) << "stored when asked";
    keychain->failures["create"] = 2;
    callsOf(true);
    ASSERT_EQ(log.size(), 1U) << "a key that is lost is not lost in silence";
    EXPECT_EQ(log[0].find("secret"), std::string::npos);

    // an item that is no text is nobody's key, and stays
    keychain->create(GenericPasswordItem{"Work", "17"}, "", {}, "\xff", {});
    keychain->locked = true;
    EXPECT_EQ(record.readAuthenticationKey(), std::nullopt);
    EXPECT_EQ(keychain->find(GenericPasswordItem{"Work", "17"})->secret, "\xff");
}

}  // namespace

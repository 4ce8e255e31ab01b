#include <algorithm>
#include <gtest/gtest.h>

#include "accounts/AccountList.h"
#include "agentlink/AgentVocabulary.h"
#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "platform/Services.h"
#include "support/ProcessNotifications.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace orv;
using quelm::Dictionary;

class TheAccounts : public testing::Test {
 protected:
    TheAccounts() { ClearConfigBasePath(); }
    ~TheAccounts() override { ClearConfigBasePath(); }

    /// An account's folder with these settings; "" is the default one's.
    void makeAccount(const std::string& id, const Dictionary& settings) {
        const std::string folder = folder_.makeFolder("Library/Preferences/com.corvanta.orv" +
                                                      (id.empty() ? "" : "/account_" + id));
        ASSERT_TRUE(StorePropertiesToFile(folder + "/user_info.plist", settings));
    }
    static std::vector<std::string> idsOf(const AccountList& list) {
        std::vector<std::string> ids;
        for (std::size_t i = 0; i < list.count(); ++i)
            ids.push_back(list.accountAtIndex(i)->agentID() +
                          (list.accountAtIndex(i)->isValid() ? "" : " (not valid)"));
        return ids;
    }
    void announce(const Dictionary& payload) {
        center_->deliver(notifications::settingsChanged, defaultNotificationObject, payload);
    }

    using Ids = std::vector<std::string>;
    test_support::ProcessNotifications center_;
    test_support::TemporaryFolder folder_;
    test_support::ScopedEnvironment home_{"HOME", folder_.path()};
};

TEST_F(TheAccounts, AreTheDefaultOneAndTheFoldersBesideItInTextOrder) {
    const AccountList none(false);
    EXPECT_EQ(idsOf(none), Ids{"1 (not valid)"});
    EXPECT_TRUE(none.needSetup());
    for (const char* id : {"", "9", "10"})
        makeAccount(id, {});
    folder_.makeFile("Library/Preferences/com.corvanta.orv/account_file");
    folder_.makeFolder("Library/Preferences/com.corvanta.orv/my_account_7");
    folder_.makeFolder("Library/Preferences/com.corvanta.orv/account_9/account_8");
    const AccountList list(false);
    EXPECT_EQ(idsOf(list), (Ids{"1", "10", "9"}));
    EXPECT_EQ(list.accountAtIndex(3), nullptr);
    EXPECT_EQ(list.accountForPath(AccountList::pathForAgentID("9") + "/x"),
              list.accountForAgentID("9"));
}

TEST_F(TheAccounts, AreFoundByWhatTheirSettingsSay) {
    makeAccount("", {{"two_way_sync", false}, {"backup_enabled", false}});
    makeAccount("2", {{"user_id", "u2"}, {"team_name", "Sales"}, {"two_way_sync", true}});
    AccountList list(false);
    EXPECT_EQ(list.accountForUserID("u2"), list.accountForAgentID("2"));
    EXPECT_EQ(list.accountForUserID("u3"), nullptr);
    EXPECT_EQ(list.teamForAgentID("2"), "Sales");
    EXPECT_EQ(list.teamForAgentID("3"), std::nullopt);
    EXPECT_TRUE(list.syncEnabled());
    EXPECT_TRUE(list.backupEnabled()) << "of the second, by default";
    EXPECT_FALSE(list.debugTabEnabled());
    EXPECT_FALSE(list.defaultConfig().syncEnabled()) << "the first account's";
}

TEST_F(TheAccounts, FollowWhatIsAnnouncedAndPassItOn) {
    struct Client final : AccountList::Client {
        void notifyAgentSettings(std::uint32_t hint, const AgentId& agentId) override {
            told.push_back(agentId.value_or("none") + " " + std::to_string(hint));
        }
        std::vector<std::string> told;
    };
    makeAccount("", {{"team_name", "before"}});
    AccountList list(false);
    const auto client = std::make_shared<Client>();
    const auto removed = std::make_shared<Client>();
    list.addClient(std::make_shared<Client>());  // goes at once
    list.addClient(removed);
    list.addClient(client);
    list.removeClient(removed.get());
    makeAccount("", {{"team_name", "after"}});
    announce({{"hint", 0x4000}});
    EXPECT_EQ(list.teamForAgentID("1"), "after");
    makeAccount("5", {{"team_name", "new"}});
    announce({{"agent-id", "5"}, {"hint", 1}});
    EXPECT_EQ(list.teamForAgentID("5"), "new");
    announce({{"agent-id", "6"}, {"hint", 1}});
    announce({{"agent-id", "../7"}, {"hint", 1}});
    announce({{"agent-id", "0"}, {"hint", 1}});
    EXPECT_EQ(idsOf(list), (Ids{"1", "5", "6 (not valid)"}));
    EXPECT_EQ(client->told, (Ids{"none 16384", "5 1", "6 1", "../7 1", "0 1"}));
    EXPECT_EQ(removed->told, Ids{});

    struct Remover final : AccountList::Client {
        void notifyAgentSettings(std::uint32_t, const AgentId&) override {
            list->removeClient(victim);
        }
        AccountList* list = nullptr;
        const AccountList::Client* victim = nullptr;
    };
    const auto remover = std::make_shared<Remover>();
    remover->list = &list;
    remover->victim = removed.get();
    list.addClient(remover);
    list.addClient(removed);
    announce({{"hint", 1}});
    EXPECT_EQ(removed->told, Ids{}) << "removed while the others are told";
}

TEST_F(TheAccounts, AreReadLaterAndOnceForAllThatIsAnnouncedMeanwhile) {
    struct Later final : quelm::Background {
        void perform(Work work, Work done) override { jobs.push_back({work, done}); }
        void run() {
            for (const auto& [work, done] : std::exchange(jobs, {})) {
                work();
                done();
            }
        }
        std::vector<std::pair<Work, Work>> jobs;
    };
    struct Client final : AccountList::Client {
        void notifyAgentSettings(std::uint32_t hint, const AgentId&) override {
            told.push_back(hint);
        }
        std::vector<std::uint32_t> told;
    };
    makeAccount("", {{"team_name", "before"}});
    Later later;
    AccountList list(AccountList::loadAccounts(AccountList::defaultConfigPath()), later);
    const auto client = std::make_shared<Client>();
    list.addClient(client);
    for (const int hint : {1, 2, 4, 2})
        announce({{"hint", hint}});
    EXPECT_EQ(later.jobs.size(), 1U);
    makeAccount("", {{"team_name", "after"}});
    later.run();
    EXPECT_EQ(client->told, std::vector<std::uint32_t>{1});
    announce({{"hint", 0}});
    later.run();
    EXPECT_EQ(client->told, (std::vector<std::uint32_t>{1, 6}));
    EXPECT_EQ(list.teamForAgentID("1"), "after");
    later.run();
    EXPECT_EQ(client->told, (std::vector<std::uint32_t>{1, 6, 0})) << "also what names nothing";
    makeAccount("5", {});
    announce({{"agent-id", "5"}, {"hint", 1}});
    announce({{"agent-id", "6"}, {"hint", 1}});
    later.run();
    EXPECT_EQ(idsOf(list), (Ids{"1", "5", "6 (not valid)"}));
}

TEST_F(TheAccounts, GiveTheSmallestThresholdWhereZeroCountsAsNoneYet) {
    const std::vector<std::pair<std::vector<int>, int>> cases = {
        {{0, 50, 20}, 20}, {{50, 0}, 0}, {{50, 0, 30}, 30}, {{20, 50}, 20}};
    for (const auto& [values, minimum] : cases) {
        for (std::size_t i = 0; i < values.size(); ++i)
            makeAccount(i == 0 ? "" : std::to_string(i + 1),
                        {{"min_mb_backup_window_treshold", values[i]}});
        const AccountList list(false);
        std::filesystem::remove_all(folder_ / "Library");
        EXPECT_EQ(list.minMbBackupWindowTresholdSetting(), minimum);
        EXPECT_EQ(list.minFilesBackupWindowTresholdSetting(), 50) << "by default";
    }
}

TEST_F(TheAccounts, CountTheRootsInEightBits) {
    makeAccount("", {});
    const AccountList list(false);
    for (const int count : {0, 1, 255, 256, 257}) {
        quelm::Array rows;
        for (int i = 0; i < count; ++i)
            rows.push_back(quelm::Array{"/folder" + std::to_string(i), true});
        ASSERT_TRUE(
            StoreArrayToFile(AccountList::defaultConfigPath() + "/storage_info.plist", rows));
        EXPECT_EQ(list.hasBackupPaths(), count % 256 != 0) << count;
    }
}

TEST_F(TheAccounts, StartWithAFreeIdAndTheFirstOnesLabelAndServer) {
    makeAccount("", {});
    makeAccount("0042", {{"config_label", "Work"}, {"server", "host"}});  // before "1" as a text
    AccountList list(false);
    for (int i = 0; i < 50; ++i) {
        const auto id = list.newAccount()->agentID();
        EXPECT_NE(id, "1");
        EXPECT_NE(id, "42");
    }
    const auto account = std::make_unique<Account>(AccountList::pathForAgentID("2"), false);
    folder_.makeFolder("Library/Preferences/com.corvanta.orv/account_2");
    account->createSkelet(list);
    const auto stored = LoadPropertiesFromFile(account->accountFolderPath() + "/user_info.plist");
    ASSERT_TRUE(stored);
    EXPECT_EQ(*stored, quelm::Value(Dictionary{{"config_label", "Work"}, {"server", "host"}}));
}

}  // namespace

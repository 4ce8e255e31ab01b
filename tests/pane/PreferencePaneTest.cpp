#include <csignal>
#include <fstream>
#include <sys/resource.h>
#include <sys/stat.h>

#include "foundation/files/Existence.h"
#include "foundation/files/SafeRemoval.h"
#include "pane/PaneFixture.h"

namespace {

using namespace orv;
using namespace std::chrono_literals;
using quelm::Dictionary;
using Names = std::vector<std::string>;

class ThePanel : public test_support::PaneFixture {
 protected:
    void storeSelection(const Names& paths) {
        quelm::Array rows;
        for (const std::string& path : paths)
            rows.emplace_back(quelm::Array{path, true});
        ASSERT_TRUE(StoreArrayToFile(folder_ / "storage_info.plist", std::move(rows)));
        accounts_.emplace(false);
    }
    Names tabsShown() const {
        Names names;
        for (const TabViewItem& item : outlets_._tabs.items())
            names.push_back(item.identifier);
        return names;
    }
    void announce(const Dictionary& payload) {
        center_->deliver(notifications::settingsChanged, defaultNotificationObject, payload);
    }
    std::string cell(const char* column, std::size_t row) const {
        return outlets_._foldersList.textAt(column, row);
    }
};

TEST_F(ThePanel, StartsDisconnectedAndAsksTheAgent) {
    Names local;
    const auto observation = services_.localNotifications->observe(
        MainViewDidLoadNotification, nullptr,
        [&](const Dictionary&) { local.push_back("loaded"); });
    start();
    EXPECT_EQ(local, Names{"loaded"});
    EXPECT_EQ(posted(), Names{"lan-info"}) << "and the report, which has no name";
    EXPECT_EQ(outlets_._connectionStatus.stringValue(), "Anna disconnected");
    EXPECT_EQ(outlets_._connectButton.title(), "Connect");
    EXPECT_EQ(outlets_._versionString.stringValue(), "7.2.33-orv");
    EXPECT_EQ(tabsShown(), (Names{"Folders", "Projects", "Bandwidth", "Account"}))
        << "the debug tab only where it is switched on";
    outlets_._connectButton.performClick();
    EXPECT_EQ(application_.launched, Names{"1"});
    EXPECT_EQ(posted(), Names{"request_connect"});
    status(4);
    EXPECT_EQ(outlets_._connectButton.title(), "Disconnect");
    outlets_._connectButton.performClick();
    EXPECT_EQ(posted(), Names{"request_disconnect"});
}

TEST_F(ThePanel, AsksForFoldersOnlyWhileTheirTabIsShown) {
    start();
    posted();
    pane_->didSelect();
    EXPECT_EQ(posted(), Names{"req_storage_folders"});
    loop_.advance(60s);
    EXPECT_EQ(posted(), Names{"req_storage_folders"});
    outlets_._tabs.select(tabs::account);
    loop_.advance(120s);
    EXPECT_EQ(posted(), Names{});
    outlets_._tabs.select(tabs::backup);
    EXPECT_EQ(posted(), Names{"req_storage_folders"});
    pane_->didUnselect();
    outlets_._tabs.select(tabs::account);
    own("preferences_select_tab", {{"tab", "Folders"}});
    loop_.advance(120s);
    EXPECT_EQ(posted(), Names{}) << "nobody sees the tab";
}

TEST_F(ThePanel, StoresWhatWasChangedAndTellsTheAgentOnce) {
    start();
    posted();
    outlets_._backupPolicyButton.performClick();  // it was on
    EXPECT_EQ(*stored("user_info.plist").find("policy_backup"), quelm::Value(0));
    EXPECT_EQ(posted(), Names{"hint 16384"});
    EXPECT_FALSE(quelm::ReadPropertyListFile(folder_ / "storage_info.plist").value)
        << "only the record was changed";

    outlets_._backupPolicyButton.performClick();
    EXPECT_EQ(alerts_.shown.back().alert.style, AlertStyle::Critical);
    answer(1);
    EXPECT_FALSE(outlets_._backupPolicyButton.isOn());
    EXPECT_EQ(posted(), Names{});
    outlets_._backupPolicyButton.performClick();
    answer(0);
    EXPECT_EQ(posted(), Names{"hint 16386"});
    EXPECT_EQ(*stored("user_info.plist").find("policy_backup"), quelm::Value(1));
}

TEST_F(ThePanel, KeepsWhatCannotBeStoredForTheNextTime) {
    start();
    posted();
    std::filesystem::rename(folder_ / "user_info.plist", folder_ / "aside");
    std::filesystem::create_directory(folder_ / "user_info.plist");  // which no file can replace
    outlets_._backupPolicyButton.performClick();
    ASSERT_EQ(alerts_.shown.size(), 1U);
    EXPECT_EQ(alerts_.shown.back().alert.title, "Corvanta Tidewell Backup Settings");
    EXPECT_NE(alerts_.shown.back().alert.message.find(folder_ / "user_info.plist"),
              std::string::npos);
    EXPECT_EQ(posted(), Names{});
    EXPECT_FALSE(outlets_._settingsNotice.isHidden());

    std::filesystem::remove(folder_ / "user_info.plist");
    std::filesystem::rename(folder_ / "aside", folder_ / "user_info.plist");
    center_->deliver(notifications::settingsChanged, defaultNotificationObject, {{"hint", 0x4000}});
    EXPECT_FALSE(outlets_._backupPolicyButton.isOn()) << "although the file says otherwise";
    EXPECT_TRUE(outlets_._settingsNotice.isHidden());
    pane_->didUnselect();
    EXPECT_EQ(posted(), Names{"hint 16384"});
    EXPECT_EQ(*stored("user_info.plist").find("policy_backup"), quelm::Value(0));
}

TEST_F(ThePanel, KeepsWhatOthersStoredSinceItRead) {
    storeSelection({"/a"});
    start();
    outlets_._foldersList.selectRows({0});
    ASSERT_TRUE(StorePropertiesToFile(folder_ / "user_info.plist",
                                      Dictionary{{"full_name", "Berta"}, {"policy_backup", 1}}));
    outlets_._backupPolicyButton.performClick();
    EXPECT_EQ(stored("user_info.plist"),
              (Dictionary{{"full_name", "Berta"}, {"policy_backup", 0}}));
    ASSERT_TRUE(StoreArrayToFile(folder_ / "storage_info.plist",
                                 quelm::Array{quelm::Array{"/a", true}, quelm::Array{"/b", true}}));
    outlets_._removeFolderButton.performClick();
    answer(1);
    EXPECT_EQ(quelm::ReadPropertyListFile(folder_ / "storage_info.plist").value,
              quelm::Value(quelm::Array(1, quelm::Array{"/b", true})));
}

TEST_F(ThePanel, TellsTheAgentOfAChangeThoughItEndsMeanwhile) {
    start();
    posted();
    held_.held = true;
    outlets_._backupPolicyButton.performClick();
    pane_.reset();
    held_.release();
    EXPECT_EQ(*stored("user_info.plist").find("policy_backup"), quelm::Value(0));
    EXPECT_EQ(posted(), Names{"hint 16384"});
}

TEST_F(ThePanel, NoticesThatTheSelectionWasNotWritten) {
    ASSERT_TRUE(
        StorePropertiesToFile(folder_ / "user_info.plist", Dictionary{{"policy_backup", 0}}));
    storeSelection({"/a", "/b"});
    start();
    posted();
    outlets_._foldersList.selectRows({0});
    outlets_._removeFolderButton.performClick();
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit full{.rlim_cur = 0, .rlim_max = limit.rlim_max};  // as a full disk
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    answer(1);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::signal(SIGXFSZ, before);
    ASSERT_EQ(alerts_.shown.size(), 1U);
    EXPECT_EQ(posted(), Names{});
    EXPECT_EQ(outlets_._foldersList.numberOfRows(), 1U) << "it stays changed here";
    pane_->didUnselect();
    EXPECT_EQ(posted(), Names{"hint 2"});
}

TEST_F(ThePanel, QueuesNoMoreWorkHoweverMuchIsAnnounced) {
    start();
    held_.held = true;
    for (int i = 0; i < 100; ++i) {
        own("storage_folders", {});
        own("storage_quota", {});
        announce({{"hint", 0x2}});
        announce({{"agent-id", "../7"}});  // which names every bit
    }
    EXPECT_LT(held_.waiting(), 10U);
    held_.release();
    EXPECT_EQ(GetConfigurationPath(), folder_ / "Library/Preferences/com.corvanta.orv");
}

TEST_F(ThePanel, SaysWhenSettingsAreInUseOrUnreadable) {
    start();
    held_.held = true;
    outlets_._backupPolicyButton.performClick();
    EXPECT_TRUE(outlets_._settingsNotice.isHidden());
    loop_.advance(1s);
    EXPECT_NE(outlets_._settingsNotice.stringValue().find("Another program"), std::string::npos);
    held_.release();
    EXPECT_TRUE(outlets_._settingsNotice.isHidden());

    std::ofstream(folder_ / "user_info.plist") << "<plist><dict><key>torn";
    center_->deliver(notifications::settingsChanged, defaultNotificationObject, {{"hint", 0x4000}});
    EXPECT_NE(outlets_._settingsNotice.stringValue().find("user_info.plist"), std::string::npos);
    EXPECT_EQ(outlets_._usernameLabel.stringValue(), "Anna") << "what was read last holds";
}

TEST_F(ThePanel, ShowsFoldersWithTheirStatesAndRemovesThem) {
    const std::string kept = folder_.makeFolder("kept");
    storeSelection({kept, folder_ / "gone", "/Volumes/Away/pictures"});
    folder_.makeFile("storage_folders.xml",
                     "<r><stores><s><total>1000</total><stored>500</stored><path>" + kept +
                         "</path></s></stores></r>");
    ASSERT_TRUE(
        StorePropertiesToFile(folder_ / "user_info.plist",
                              Dictionary{{"policy_backup", 0}, {"external_drive_share", true}}));
    accounts_.emplace(false);
    start();
    ASSERT_EQ(outlets_._foldersList.numberOfRows(), 3U);
    EXPECT_EQ(cell("share", 0), "kept");
    EXPECT_EQ(cell("path", 0), kept);
    EXPECT_EQ(cell("status", 0), "50% Backed Up");
    EXPECT_EQ(cell("status", 1), "Folder is missing");
    EXPECT_EQ(cell("status", 2), "Volume offline");
    EXPECT_EQ(pane_->status().inputs().offlineVolumes, Names{"Away"});
    EXPECT_FALSE(outlets_._removeFolderButton.isEnabled());

    outlets_._foldersList.selectRows({0, 1});
    posted();
    outlets_._removeFolderButton.performClick();
    answer(0);
    EXPECT_EQ(outlets_._foldersList.numberOfRows(), 3U) << "\"No\" is the default";
    outlets_._removeFolderButton.performClick();
    answer(1);
    EXPECT_EQ(posted(), Names{"hint 2"});
    EXPECT_EQ(outlets_._foldersList.numberOfRows(), 1U);
    EXPECT_EQ(LoadStorageConfiguration(folder_ / "storage_info.plist")->asArray()->size(), 1U);
    outlets_._foldersList.selectRows({0});
    outlets_._showInFinderButton.performClick();
    EXPECT_EQ(workspace_->openedPaths, Names{"/Volumes/Away/pictures"});
}

TEST_F(ThePanel, KeepsFoldersSelectedNotRows) {
    ASSERT_TRUE(
        StorePropertiesToFile(folder_ / "user_info.plist", Dictionary{{"policy_backup", 0}}));
    storeSelection({"/b", "/c"});
    start();
    outlets_._foldersList.selectRows({1});
    ASSERT_TRUE(StoreArrayToFile(folder_ / "storage_info.plist",
                                 quelm::Array{quelm::Array{"/a", true}, quelm::Array{"/b", true},
                                              quelm::Array{"/c", true}}));
    announce({{"hint", 0x2}});
    ASSERT_EQ(outlets_._foldersList.numberOfRows(), 3U);
    EXPECT_EQ(outlets_._foldersList.selectedRows(), std::set<std::size_t>{2});

    held_.held = true;
    announce({{"hint", 0x2}});  // begins to look at all three
    outlets_._removeFolderButton.performClick();
    answer(1);
    EXPECT_EQ(outlets_._foldersList.numberOfRows(), 2U);
    std::vector<std::size_t> rows;
    outlets_._foldersList.observe([&] { rows.push_back(outlets_._foldersList.numberOfRows()); });
    held_.release();
    outlets_._foldersList.observe({});
    EXPECT_EQ(std::ranges::count(rows, 3U), 0) << "what is removed does not come back";
}

TEST_F(ThePanel, AsksForNothingThatWasLockedSinceTheQuestion) {
    ASSERT_TRUE(
        StorePropertiesToFile(folder_ / "user_info.plist", Dictionary{{"policy_backup", 0}}));
    storeSelection({"/a"});
    start();
    posted();
    outlets_._foldersList.selectRows({0});
    outlets_._removeFolderButton.performClick();
    outlets_._backupPolicyButton.performClick();
    ASSERT_EQ(alerts_.shown.size(), 2U);
    ASSERT_TRUE(StorePropertiesToFile(
        folder_ / "user_info.plist",
        Dictionary{{"policy_backup", 0}, {"policy_agent_config_locked", true}}));
    announce({{"hint", 0x8000}});
    answer(0);
    answer(1);
    EXPECT_EQ(posted(), Names{});
    EXPECT_FALSE(outlets_._backupPolicyButton.isOn());
    EXPECT_EQ(outlets_._foldersList.numberOfRows(), 1U);
}

TEST_F(ThePanel, OffersAWarningAfterDaysThatWereSetElsewhere) {
    ASSERT_TRUE(
        StorePropertiesToFile(folder_ / "user_info.plist", Dictionary{{"backup_warning_days", 5}}));
    accounts_.emplace(false);
    start();
    ASSERT_EQ(outlets_._warningDays.titles().size(), 7U);
    EXPECT_EQ(outlets_._warningDays.indexOfSelectedItem(), 6U);
    outlets_._warningDays.choose(2);
    EXPECT_EQ(*stored("user_info.plist").find("backup_warning_days"), quelm::Value(7));
    outlets_._warningDays.choose(6);  // which is offered no more
    EXPECT_EQ(*stored("user_info.plist").find("backup_warning_days"), quelm::Value(7));
}

TEST_F(ThePanel, FollowsTheHintsOfItsSettings) {
    start();
    ASSERT_TRUE(StorePropertiesToFile(folder_ / "user_info.plist",
                                      Dictionary{{"full_name", "Berta"},
                                                 {"team_name", "Sales"},
                                                 {"debug_tab_enabled", true},
                                                 {"two_way_sync", true},
                                                 {"policy_agent_config_locked", true}}));
    center_->deliver(notifications::settingsChanged, defaultNotificationObject, {{"hint", 0x4}});
    EXPECT_EQ(tabsShown().back(), "Debug");
    EXPECT_EQ(outlets_._usernameLabel.stringValue(), "Anna") << "the hint was about debugging only";
    center_->deliver(notifications::settingsChanged, defaultNotificationObject, {{"hint", 0x4000}});
    EXPECT_EQ(outlets_._usernameLabel.stringValue(), "Berta (Sales)");
    EXPECT_FALSE(outlets_._connectButton.isEnabled());
    EXPECT_FALSE(outlets_._backupPolicyButton.isEnabled());
    EXPECT_FALSE(outlets_._advancedSettings.isHidden());
    EXPECT_FALSE(outlets_._projectsStatus1.isHidden());
    own("scan_activity", {{"value", "1"}});
    EXPECT_EQ(outlets_._debugWindow.textAt("event", 0), "scan_activity");
}

TEST_F(ThePanel, HidesTheBackupWhereItIsOff) {
    ASSERT_TRUE(
        StorePropertiesToFile(folder_ / "user_info.plist",
                              Dictionary{{"backup_enabled", false}, {"two_way_sync", true}}));
    accounts_.emplace(false);
    start();
    EXPECT_EQ(tabsShown(), (Names{"Projects", "Bandwidth", "Account"}));
    EXPECT_TRUE(outlets_._backupFolderText.isHidden());
    EXPECT_TRUE(outlets_._pieChartView.isHidden());
    EXPECT_EQ(outlets_._backupStatus1.stringValue(), "");
    folder_.makeFile("storage_quota.xml",
                     "<r><request><parameters><total-quota>100</total-quota></parameters>"
                     "</request></r>");
    own("storage_quota", {});
    EXPECT_FALSE(outlets_._pieChartView.isHidden()) << "there is a quota to show";
    folder_.makeFile("storage_quota.xml",
                     "<r><request><parameters><total-quota>-1</total-quota></parameters>"
                     "</request></r>");
    own("storage_quota", {});
    EXPECT_TRUE(outlets_._pieChartView.isHidden()) << "nothing can be a part of what has no limit";
    EXPECT_FALSE(outlets_._summaryPanelView.isHidden());
}

TEST_F(ThePanel, SelectsTabsAndOpensLinks) {
    start();
    own("preferences_select_tab", {{"tab", "Account"}});
    EXPECT_EQ(outlets_._tabs.selectedIdentifier(), "Account");
    own("preferences_select_tab", {{"tab", "advanced_settings"}});
    EXPECT_NE(windows_.advanced, nullptr);
    own("preferences_select_tab", {{"tab", "nowhere"}});
    EXPECT_EQ(outlets_._tabs.selectedIdentifier(), "Account");
    own("storage_window", {});
    EXPECT_EQ(outlets_._tabs.selectedIdentifier(), "Folders");
    pane_->openLink("orv:lockedFilesWindow");
    EXPECT_EQ(outlets_._tabs.selectedIdentifier(), "Projects");
    pane_->openLink("https://help.example/x");
    pane_->openLink("orv:\x1b[2Jelsewhere");
    EXPECT_EQ(workspace_->openedAddresses, Names{"https://help.example/x"});
    EXPECT_NE(log_.back().find("\\x1b[2J"), std::string::npos) << log_.back();
}

TEST_F(ThePanel, GivesUpWaitingForTheFileManager) {
    start();
    pane_->resetShowDialogPreference();
    EXPECT_EQ(posted().back(), "reset_show_dialog");
    own("reset_show_dialog_success", {});
    loop_.advance(10s);
    EXPECT_TRUE(alerts_.shown.empty());
    pane_->resetShowDialogPreference();
    loop_.advance(3s);
    ASSERT_EQ(alerts_.shown.size(), 1U);
    EXPECT_EQ(alerts_.shown[0].alert.buttons, Names{"OK"});
}

TEST_F(ThePanel, ReportsALoaderThatDidNotStart) {
    start();
    own("project_import_response", {{"result", "0"}});
    own("project_import_response", {{"result", "1"}, {"running", "0"}});
    EXPECT_TRUE(alerts_.shown.empty());
    own("project_import_response", {{"result", "1"}, {"running", "1"}});
    for (int i = 0; i < 100; ++i)
        own("project_import_response", {{"result", "1"}});
    ASSERT_EQ(alerts_.shown.size(), 2U);
    EXPECT_EQ(alerts_.shown[0].alert.title, "Project Loader already running");
    EXPECT_EQ(alerts_.shown[1].alert.title, "Project Loader failed");
    answer(0);
    own("project_import_response", {{"result", "1"}});
    EXPECT_EQ(alerts_.shown.size(), 2U) << "again, now that it was read";
}

TEST_F(ThePanel, SeesThatAnAgentHasGoneWithoutAWord) {
    start();
    pane_->didSelect();
    status(4, 100);
    application_.agentRuns = false;
    loop_.advance(3s);
    EXPECT_EQ(outlets_._connectionStatus.stringValue(), "Anna disconnected");
    EXPECT_EQ(outlets_._connectButton.title(), "Connect");
    application_.agentRuns = true;
    center_->connect(false);
    EXPECT_NE(outlets_._connectionInfo.stringValue().find("message bus"), std::string::npos);
    EXPECT_NE(outlets_._headline.stringValue().find("message bus"), std::string::npos);
    center_->connect(true);
    EXPECT_EQ(outlets_._connectionInfo.stringValue(), "");
}

TEST_F(ThePanel, RemembersWhenTheBackupWasComplete) {
    ASSERT_TRUE(StorePropertiesToFile(folder_ / "backup_history.plist",
                                      Dictionary{{"last_complete", 1000}}));
    start();
    loop_.advance(std::chrono::hours(24 * 30));
    EXPECT_EQ(pane_->status().inputs().lastComplete, 1000);
    own("share_stats", {{"files", "3"}, {"folders", "1"}});
    own("store_status", {{"total-bytes", "10"}, {"stored-bytes", "10"}});
    EXPECT_EQ(*stored("backup_history.plist").find("last_complete"), quelm::Value(1000))
        << "not connected";
    status(4);
    EXPECT_GT(*stored("backup_history.plist").find("last_complete")->asInteger(), 1000);
    EXPECT_EQ(outlets_._headline.stringValue(), "Everything is backed up.");
}

TEST_F(ThePanel, CopiesWhatSupportAsksFor) {
    ASSERT_TRUE(
        StorePropertiesToFile(folder_ / "user_info.plist",
                              Dictionary{{"user_id", "u7"}, {"rcid", "r9"}, {"cell_id", "c1"}}));
    accounts_.emplace(false);
    start();
    outlets_._copyDeviceInfoButton.performClick();
    EXPECT_EQ(clipboard_.text,
              "Device version: 7.2.33-orv Thu Dec 21 17:11:39 2017\nProtocol version:433\n"
              "Account ID:u7\nCell: c1\nDeviceID:r9\nHardwareID:\n");
    outlets_._copyDeviceIDButton.performClick();
    EXPECT_EQ(clipboard_.text, "DeviceID:r9");
}

class AnAccount : public ThePanel {
 protected:
    AnAccount() {
        folder_.makeFile("account_7/keep.txt");
        home7_.makeFile("projects7/plan.txt");
        accounts_.emplace(false);
    }
    void useProjects(const std::string& folder) {
        ASSERT_TRUE(StorePropertiesToFile(folder_ / "account_7/user_info.plist",
                                          Dictionary{{"master_project_folder", folder}}));
        accounts_.emplace(false);
        quelm::os::SetRemovalRules({{folder_.path(), folder_ / "account_7"}});
        start();
        outlets_._accountsButton.choose(1);
    }
    test_support::TemporaryFolder home7_;
    ~AnAccount() override { quelm::os::SetRemovalRules({}); }
};

TEST_F(AnAccount, IsDeletedOnlyAfterAQuestionThatNamesWhatGoes) {
    useProjects(home7_ / "projects7");
    application_.isRunning = true;
    outlets_._deleteAccountButton.performClick();
    EXPECT_TRUE(alerts_.shown.empty()) << "nothing at all while the application runs";
    application_.isRunning = false;
    outlets_._deleteAccountButton.performClick();
    ASSERT_EQ(alerts_.shown.size(), 1U);
    EXPECT_NE(alerts_.shown[0].alert.informativeText->find(home7_ / "projects7"),
              std::string::npos);
    answer(0);
    EXPECT_TRUE(quelm::Exists(folder_ / "account_7/keep.txt"));
    posted();
    outlets_._deleteAccountButton.performClick();
    answer(1);
    EXPECT_FALSE(quelm::Exists(folder_ / "account_7"));
    EXPECT_FALSE(quelm::Exists(home7_ / "projects7"));
    EXPECT_EQ(posted().front(), "hint 1");
    EXPECT_EQ(outlets_._accountsButton.indexOfSelectedItem(), 0U);
    outlets_._deleteAccountButton.performClick();
    EXPECT_EQ(alerts_.shown.back().alert.informativeText, "Can't delete default account.");
}

TEST_F(AnAccount, LosesOnlyWhatTheQuestionNamed) {
    useProjects(home7_ / "projects7");
    outlets_._deleteAccountButton.performClick();
    const std::string other = home7_.makeFolder("other");
    ASSERT_TRUE(StorePropertiesToFile(folder_ / "account_7/user_info.plist",
                                      Dictionary{{"master_project_folder", other}}));
    announce({{"agent-id", "7"}, {"hint", 0x4000}});
    answer(1);
    EXPECT_TRUE(quelm::Exists(folder_ / "account_7"));
    ASSERT_EQ(alerts_.shown.size(), 1U) << "it is asked anew";
    EXPECT_NE(alerts_.shown[0].alert.informativeText->find(other), std::string::npos);
    answer(1);
    EXPECT_FALSE(quelm::Exists(other));
    EXPECT_TRUE(quelm::Exists(home7_ / "projects7"));
}

TEST_F(AnAccount, LeavesProjectsThatAnotherAccountUsesByWhateverPath) {
    const std::string shared = home7_.makeFile("shared/plan.txt");
    std::filesystem::create_directory_symlink(home7_.path(), folder_ / "link");
    ASSERT_TRUE(StorePropertiesToFile(folder_ / "user_info.plist",
                                      Dictionary{{"master_project_folder", home7_ / "shared"}}));
    for (const std::string& path :
         {home7_ / "shared", home7_ / "./shared/", folder_ / "link/shared"}) {
        folder_.makeFile("account_7/keep.txt");
        useProjects(path);
        outlets_._deleteAccountButton.performClick();
        answer(1);
        EXPECT_FALSE(quelm::Exists(folder_ / "account_7"));
        EXPECT_TRUE(quelm::Exists(shared)) << path;
        pane_.reset();
    }
}

TEST_F(AnAccount, ShowsNothingOfTheOneThatWasShownBefore) {
    start();
    own("share_stats", {{"files", "3"}, {"folders", "1"}});
    own("store_status", {{"total-bytes", "10"}, {"stored-bytes", "10"}});
    status(4);
    EXPECT_EQ(outlets_._headlineImage.imageName(), "in-sync");
    EXPECT_TRUE(quelm::Exists(folder_ / "backup_history.plist"));
    outlets_._accountsButton.choose(1);
    EXPECT_EQ(pane_->status().progress().totalFolders, 0);
    EXPECT_EQ(outlets_._lastBackup.stringValue(), "There was no complete backup yet.");
    const auto connected = [this](const char* agentId) {
        center_->deliver(notifications::connectionStatusChanged, defaultNotificationObject,
                         {{"agent-id", agentId}, {"status", 4}});
    };
    connected("7");
    EXPECT_NE(outlets_._headlineImage.imageName(), "in-sync");
    event("share_stats", {{"agent-id", "7"}, {"folders", "1"}});
    event("store_status", {{"agent-id", "7"}});
    EXPECT_EQ(outlets_._headlineImage.imageName(), "in-sync");
    EXPECT_TRUE(quelm::Exists(folder_ / "account_7/backup_history.plist"));

    application_.held = true;
    pane_->didSelect();
    loop_.advance(9s);
    ASSERT_EQ(application_.asked.size(), 1U) << "one question at a time";
    outlets_._accountsButton.choose(0);
    connected("1");
    application_.asked[0](false);
    EXPECT_EQ(outlets_._connectButton.title(), "Disconnect") << "the other one's agent has gone";
}

TEST_F(AnAccount, IsChosenByWhatIsListed) {
    useProjects(home7_ / "projects7");
    folder_.makeFile("account_3/keep.txt");
    announce({{"agent-id", "3"}, {"hint", 0x2}});
    EXPECT_EQ(outlets_._accountsButton.titles().size(), 3U);
    EXPECT_EQ(outlets_._accountsButton.indexOfSelectedItem(), 2U);
    outlets_._accountsButton.choose(1);
    EXPECT_EQ(pane_->activeAccount().agentID(), "3");
}

}  // namespace

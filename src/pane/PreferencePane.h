#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "backup/sharing/SharingWindowController.h"
#include "foundation/system/ApplicationBundle.h"
#include "foundation/threads/OneAtATime.h"
#include "pane/DebugEvents.h"
#include "pane/PaneEnvironment.h"
#include "pane/PaneOutlets.h"
#include "pane/account/AccountDeletion.h"
#include "pane/folders/FolderTable.h"
#include "pane/projects/ProjectTable.h"
#include "pane/settings/AdvancedSettingsController.h"
#include "pane/settings/DeviceInfo.h"
#include "pane/settings/SettingsCycle.h"
#include "pane/settings/SettingsHealth.h"
#include "pane/status/BackupHistory.h"
#include "pane/status/StatusModel.h"

namespace orv {

// Local notifications of the panel; their sender is the panel.
inline constexpr const char* MainViewDidLoadNotification = "MainViewDidLoadNotification";
inline constexpr const char* DidSelectNotification = "DidSelectNotification";
inline constexpr const char* DidUnselectNotification = "DidUnselectNotification";

/// The panel: what its window shows and what its buttons do. It reads and writes the accounts'
/// settings, asks the agent and hears from it; it moves no data itself. Main thread only.
class orvPreferencePane final : private SharingDelegate {
 public:
    /// Null, with a line in the log, without an account.
    [[nodiscard]] static std::unique_ptr<orvPreferencePane> initWithBundle(
        const quelm::Bundle* bundle, PaneOutlets& outlets, const PaneEnvironment& environment);
    orvPreferencePane(const orvPreferencePane&) = delete;
    orvPreferencePane& operator=(const orvPreferencePane&) = delete;
    ~orvPreferencePane() override;

    // What the host calls: once, and whenever the panel is shown and left.
    void mainViewDidLoad();
    void didSelect();
    void didUnselect();

    [[nodiscard]] const orv_StorageFoldersInfo& storageFoldersInfo() const;
    [[nodiscard]] const orv_StorageQuotaInfo& storageQuotaInfo() const;
    [[nodiscard]] orvAgentSettings& agentSettings() const;
    [[nodiscard]] Account& activeAccount() const { return *_activeAccount; }
    [[nodiscard]] const StatusModel& status() const { return status_; }
    /// Null while the folders are not being chosen.
    [[nodiscard]] orv_SharingWindowController* sharing() { return sharing_.get(); }

    // What buttons do.
    void connect();
    void disconnect();
    void allowRemoteAccessClicked();
    void verifyPasswordButtonChanged();
    void resetShowDialogPreference();
    void showProgress();
    void restoreProgressButtonPressed();
    void showSharingWindow();
    void backupPolicyButtonPressed();
    void copyDeviceInfoToClipboard();
    void copyDeviceIDToClipboard();
    void removeFolder();
    void showFolderInFinder();
    void advancedSettings();
    void addAccount() {}
    void deleteAccountClicked();
    void accountChosen();
    void warningDaysChosen();

    void selectTabWithIdentifier(std::string_view identifier);
    /// Opens what a link names: a place of the panel or a page of the service. What is neither is
    /// refused with a line in the log.
    void openLink(const std::string& address);

    // What the agent says, beside what StatusModel hears.
    void handleStorageFolders();
    void handleStorageQuota();
    void handleStorageWindow();
    void handlePreferencesSelectTab(const quelm::Dictionary& payload);
    void handleFinderResetSuccess();
    void handleProjectImportResponse(const quelm::Dictionary& payload);
    void notifyAgentSettings(std::uint32_t hint, const AgentId& agentId);
    void projectsListChanged();
    void lockedFilesChanged();

 private:
    class SettingsClient;

    orvPreferencePane(PaneOutlets& outlets, const PaneEnvironment& environment, Account& settings,
                      Account& active);

    using Action = void (orvPreferencePane::*)();

    bool setActiveAccount(Account* account);
    [[nodiscard]] std::vector<std::pair<Button*, Action>> buttonActions();
    void wireActions();
    void unwireActions();
    void hideWhatIsNotThere();
    void registerAgentEvents();
    void requestFSAList();
    void setMPFImage();

    void loadSettings();
    void saveSettings() { settings_.saveSettings(); }
    void loadStorageSettings();
    void initStorageQuotaSettings();
    /// What is known of backup and projects before the agent speaks.
    void computeBackupAndSync();
    void reloadRecords(unsigned what);
    void startReload();
    void recordsReloaded();
    void loadHistory();
    void startFollowing();
    void startHealthCheck();
    void checkKeychain();
    void checkBus();
    void showSettingsNotice();
    void foldersShown();

    void updateInputs();
    void updateUi();
    void updateBackupUI();
    [[nodiscard]] bool mayRemoveFolders() const;
    void updateFolderButtons();
    void updateAccountsButton();
    void updateWarningDays();
    void showDeviceInfo();
    void showStorage();
    void enableProjectsStatus();
    void enableBackup();
    void setStateOfVerifyPasswordButton();
    void showDebugTab();

    [[nodiscard]] bool isShown() const { return _connectionDurationTimer != nullptr; }
    void tabViewDidSelectTabViewItem(const TabViewItem& item);
    void startStorageFoldersUpdate();
    void stopStorageFoldersUpdate();
    void storageFoldersUpdateCallback();
    void connectionTimerCallback();
    void watchAgent();
    void busConnectionChanged(bool isConnected);
    void handleResponseTimeout();

    void restorePolicyBackupPaths();
    void removeFolders(const std::vector<std::string>& paths);
    void askToDelete(Account& account);
    void deleteAccount(Account& account, const AccountRemains& remains);
    void selectEntryBefore(const Account& account);
    void openSharingWindow();
    void releaseSharingWindow();
    void takeSharingFlags();
    void sharingDialogDidFinishWithSize(std::uint64_t size, const std::string& agentID) override;
    void sharingDialogCancelled() override;
    void connectAfterSetUp(const std::string& agentID);
    void openDashboard();
    void printError(const SettingsError& error);
    void printErrorMessage(const std::string& message);
    void tell(const Alert& alert, std::function<void(int button)> answered = {});
    [[nodiscard]] std::string settingsTitle() const;
    [[nodiscard]] std::int64_t now() const;

    PaneOutlets& outlets_;
    PaneEnvironment environment_;
    /// The account whose settings are shown: the first of the list.
    Account& settingsAccount_;
    /// The account whose agent is addressed.
    Account* _activeAccount;
    StatusModel status_;
    SettingsCycle settings_;
    FolderTable folders_;
    ProjectTable projectTable_;
    /// Of the active account.
    std::unique_ptr<BackupHistory> history_;
    AdvancedSettingsController advanced_;
    DebugEvents debugEvents_;
    /// Null while the folders are not being chosen.
    std::unique_ptr<orv_SharingWindowController> sharing_;
    /// Until it has returned.
    std::unique_ptr<orv_SharingWindowController> endedSharing_;
    SettingsHealth health_;
    bool isSlow_ = false;
    quelm::OneAtATime reload_{[this] { startReload(); }};
    /// What to show anew after the next reload.
    unsigned reloadedParts_ = 0;
    quelm::OneAtATime activeConfiguration_{[this] { startFollowing(); }};
    quelm::OneAtATime healthCheck_{[this] { startHealthCheck(); }};
    DeviceInfo deviceInfo_;
    std::int64_t _quota = 0;
    std::int64_t _totalOtherComputers = 0;
    std::int64_t _totalThisComputer = 0;
    bool isDebugTabShown_ = true;
    /// Row by row what stands in the lists to choose from.
    std::vector<Account*> listedAccounts_;
    std::vector<std::int32_t> listedWarningDays_;
    /// By its texts, while the alert is open.
    std::map<std::string, std::weak_ptr<bool>> openAlerts_;
    bool isBusThere_ = false;
    bool isAgentAsked_ = false;
    std::shared_ptr<SettingsClient> settingsClient_;
    std::unique_ptr<platform::DistributedNotificationCenter::Observation> busObservation_;
    std::unique_ptr<platform::RunLoop::Timer> _connectionDurationTimer;
    std::unique_ptr<platform::RunLoop::Timer> agentWatchTimer_;
    std::unique_ptr<platform::RunLoop::Timer> _storageFoldersUpdateTimer;
    std::unique_ptr<platform::RunLoop::Timer> _responseTimer;
    /// Gone when this is: answers from the background look at it.
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
};

}  // namespace orv

#include "pane/PreferencePane.h"

#include <chrono>
#include <utility>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "config/ProductVersion.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/system/Log.h"
#include "support/LoggerToFile.h"

// The panel's life: how it starts, is shown, left and ended.

namespace orv {

namespace {

using namespace std::chrono_literals;

constexpr auto connectionInterval = 30s;
constexpr auto agentWatchInterval = 3s;

}  // namespace

std::unique_ptr<orvPreferencePane> orvPreferencePane::initWithBundle(
    const quelm::Bundle* bundle, PaneOutlets& outlets, const PaneEnvironment& environment) {
    quelm::SetApplicationBundle(bundle);
    LoggerToFile::defaultLogger().redirect(locations::panelLog);
    LoggerToFile::defaultLogger().checkLogSize();
    Account* const first = environment.accounts.accountAtIndex(0);
    if (!first) {
        quelm::LogError("No valid configuration found at: " + AccountList::defaultConfigPath() +
                        " .Exiting!");
        return nullptr;
    }
    return std::unique_ptr<orvPreferencePane>(
        new orvPreferencePane(outlets, environment, *first, *first));
}

orvPreferencePane::orvPreferencePane(PaneOutlets& outlets, const PaneEnvironment& environment,
                                     Account& settings, Account& active)
    : outlets_(outlets),
      environment_(environment),
      settingsAccount_(settings),
      _activeAccount(&active),
      status_(outlets, *environment.services.runLoop),
      settings_(settings, environment.background,
                [this](const SettingsError& error) { printError(error); }),
      folders_(outlets._foldersList, environment.folderBackground, [this] { foldersShown(); }),
      projectTable_(outlets._projectsTable),
      advanced_(settings, settings_, environment.windows),
      debugEvents_(outlets._debugWindow, *environment.services.runLoop) {
    for (const char* identifier :
         {tabs::backup, tabs::projects, tabs::bandwidth, tabs::account, tabs::debug})
        outlets_._tabs.append({identifier});
    setActiveAccount(&active);
}

orvPreferencePane::~orvPreferencePane() {
    unwireActions();
    environment_.background.setTold({});
    environment_.projects.removeClient(this);
    environment_.locks.removeClient(this);
    environment_.dispatcher.unregisterTarget(this);
}

bool orvPreferencePane::setActiveAccount(Account* account) {
    if (!account) return false;
    _activeAccount = account;
    settings_.setAgentId(account->agentID());
    if (history_) history_->store();
    history_ =
        std::make_unique<BackupHistory>(account->accountFolderPath(), environment_.background);
    status_.inputs().agentId = account->agentID();
    status_.inputs().lastComplete.reset();
    status_.forgetAgent();
    return true;
}

void orvPreferencePane::mainViewDidLoad() {
    outlets_._tabs.setDelegate(
        [this](const TabViewItem& item) { tabViewDidSelectTabViewItem(item); });
    environment_.projects.addClient(
        this, MakeSelector<&orvPreferencePane::projectsListChanged>("projectsListChanged"));
    environment_.locks.addClient(
        this, MakeSelector<&orvPreferencePane::lockedFilesChanged>("lockedFilesChanged"));
    wireActions();
    hideWhatIsNotThere();
    setMPFImage();
    loadSettings();
    loadStorageSettings();
    initStorageQuotaSettings();
    computeBackupAndSync();
    updateUi();
    enableProjectsStatus();
    enableBackup();
    projectsListChanged();
    status_.showBackupAndProjectsStatus();
    status_.startDisconnected();
    setStateOfVerifyPasswordButton();
    registerAgentEvents();
    NotifyAgentReportStatus("1");
    showDeviceInfo();
    requestFSAList();
    outlets_._versionString.setStringValue(std::string(product::version) + "-" +
                                           std::string(product::prefix));
    environment_.services.localNotifications->post(MainViewDidLoadNotification, this, {});
}

void orvPreferencePane::didSelect() {
    platform::RunLoop& runLoop = *environment_.services.runLoop;
    _connectionDurationTimer =
        runLoop.every(connectionInterval, [this] { connectionTimerCallback(); });
    agentWatchTimer_ = runLoop.every(agentWatchInterval, [this] { watchAgent(); });
    status_.showConnectionStatus();
    environment_.services.localNotifications->post(DidSelectNotification, this, {});
    if (outlets_._tabs.selectedIdentifier() == tabs::backup) startStorageFoldersUpdate();
}

void orvPreferencePane::didUnselect() {
    _connectionDurationTimer.reset();
    agentWatchTimer_.reset();
    saveSettings();
    history_->store();
    environment_.services.localNotifications->post(DidUnselectNotification, this, {});
    stopStorageFoldersUpdate();
}

std::int64_t orvPreferencePane::now() const {
    return std::chrono::system_clock::to_time_t(environment_.services.runLoop->now());
}

const orv_StorageFoldersInfo& orvPreferencePane::storageFoldersInfo() const {
    return settingsAccount_.records().storageFoldersInfo;
}
const orv_StorageQuotaInfo& orvPreferencePane::storageQuotaInfo() const {
    return settingsAccount_.records().storageQuotaInfo;
}
orvAgentSettings& orvPreferencePane::agentSettings() const {
    return settingsAccount_.agentSettings();
}

/// The time goes on, folders may have come or gone with their volumes, and files been repaired.
void orvPreferencePane::connectionTimerCallback() {
    status_.showConnectionStatus();
    loadStorageSettings();
    healthCheck_.ask();
    LoggerToFile::defaultLogger().checkLogSize();
}

/// An agent that was killed says nothing.
void orvPreferencePane::watchAgent() {
    const auto notRunning = static_cast<std::uint32_t>(ConnectionStatus::NotRunning);
    if (isAgentAsked_ || status_.progress().status <= notRunning) return;
    isAgentAsked_ = true;
    const std::string agentId = _activeAccount->agentID();
    environment_.application.askIfAgentRuns(
        agentId, [this, life = std::weak_ptr(life_), agentId](bool isRunning) {
            if (life.expired()) return;
            isAgentAsked_ = false;
            if (isRunning) return;
            status_.notifyConnectionStatus(static_cast<std::int32_t>(ConnectionStatus::NotRunning),
                                           now(), agentId);
        });
}

void orvPreferencePane::tabViewDidSelectTabViewItem(const TabViewItem& item) {
    if (item.identifier == tabs::backup && isShown()) {
        startStorageFoldersUpdate();
    } else {
        stopStorageFoldersUpdate();
    }
}

void orvPreferencePane::startStorageFoldersUpdate() {
    if (_storageFoldersUpdateTimer) return;
    _storageFoldersUpdateTimer =
        environment_.services.runLoop->every(60s, [this] { storageFoldersUpdateCallback(); });
    storageFoldersUpdateCallback();
}

void orvPreferencePane::stopStorageFoldersUpdate() {
    _storageFoldersUpdateTimer.reset();
}

void orvPreferencePane::storageFoldersUpdateCallback() {
    // while the bus is away one that waits is enough
    QueueAgentEventCoalesce(_activeAccount->agentID(), events::requestStorageFolders, {}, {});
}

void orvPreferencePane::requestFSAList() {
    NotifyAgentEvent("0", events::lanInfo, {{keys::command, commands::requestFileServers}});
}

void orvPreferencePane::selectTabWithIdentifier(std::string_view identifier) {
    if (outlets_._tabs.select(identifier)) return;
    if (identifier == "advanced_settings") advancedSettings();
}

}  // namespace orv

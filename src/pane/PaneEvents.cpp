#include <utility>

#include "agentlink/AgentPayload.h"
#include "agentlink/AgentVocabulary.h"
#include "foundation/system/LocalizedString.h"
#include "pane/PreferencePane.h"

// What the panel does about what agents say, beside the status.

namespace orv {

using quelm::GetLocalizedString;

namespace {

// What is shown anew after a reload.
constexpr unsigned foldersPart = 1;
constexpr unsigned quotaPart = 2;

}  // namespace

/// The account list holds its clients weakly.
class orvPreferencePane::SettingsClient final : public AccountList::Client {
 public:
    explicit SettingsClient(orvPreferencePane& pane) : pane_(pane) {}

    void notifyAgentSettings(std::uint32_t hint, const AgentId& agentId) override {
        pane_.notifyAgentSettings(hint, agentId);
    }

 private:
    orvPreferencePane& pane_;
};

void orvPreferencePane::registerAgentEvents() {
    struct Row {
        const char* event;
        Selector<orvPreferencePane> selector;
    };
    const Row rows[] = {
        {events::storageFolders,
         MakeSelector<&orvPreferencePane::handleStorageFolders>("handleStorageFolders")},
        {events::storageQuota,
         MakeSelector<&orvPreferencePane::handleStorageQuota>("handleStorageQuota")},
        {events::storageWindow,
         MakeSelector<&orvPreferencePane::handleStorageWindow>("handleStorageWindow")},
        {events::preferencesSelectTab, MakeSelector<&orvPreferencePane::handlePreferencesSelectTab>(
                                           "handlePreferencesSelectTab")},
        {events::resetShowDialogSuccess,
         MakeSelector<&orvPreferencePane::handleFinderResetSuccess>("handleFinderResetSuccess")},
        {events::projectImportResponse,
         MakeSelector<&orvPreferencePane::handleProjectImportResponse>(
             "handleProjectImportResponse")},
    };
    status_.registerAgentEvents(environment_.dispatcher);
    for (const Row& row : rows)
        environment_.dispatcher.registerEventName(row.event, this, row.selector);
    settingsClient_ = std::make_shared<SettingsClient>(*this);
    environment_.accounts.addClient(settingsClient_);
}

void orvPreferencePane::notifyAgentSettings(std::uint32_t hint, const AgentId& /*agentId*/) {
    if (hint & HintActiveAccount) activeConfiguration_.ask();
    recordsReloaded();
    if (listedAccounts_.size() != environment_.accounts.count()) updateAccountsButton();
    if (hint & (HintAgentSettings | HintAccountRecord)) {
        updateUi();
        status_.showConnectionStatus();
        setStateOfVerifyPasswordButton();
        enableProjectsStatus();
        enableBackup();
        status_.showBackupStatus();
    }
    if (hint & HintDebugSettings) showDebugTab();
    if (hint & HintBackupSelection) loadStorageSettings();
}

void orvPreferencePane::handleStorageFolders() {
    reloadRecords(foldersPart);
}

void orvPreferencePane::handleStorageQuota() {
    reloadRecords(quotaPart);
}

void orvPreferencePane::reloadRecords(unsigned what) {
    reloadedParts_ |= what;
    reload_.ask();
}

void orvPreferencePane::startReload() {
    environment_.accounts.reload(settingsAccount_, [this, life = std::weak_ptr(life_),
                                                    what = std::exchange(reloadedParts_, 0U)] {
        if (life.expired()) return;
        recordsReloaded();
        if (what & foldersPart) loadStorageSettings();
        if (what & quotaPart) {
            initStorageQuotaSettings();
            status_.updateQuotaStatus();
            enableBackup();
        }
        reload_.finished();
    });
}

void orvPreferencePane::handlePreferencesSelectTab(const quelm::Dictionary& payload) {
    const std::string tab = PayloadText(payload, keys::tab);
    if (!tab.empty()) selectTabWithIdentifier(tab);
}

void orvPreferencePane::handleFinderResetSuccess() {
    _responseTimer.reset();
}

void orvPreferencePane::handleResponseTimeout() {
    _responseTimer.reset();
    printErrorMessage(GetLocalizedString(
        "PrefPane.UnableToReset",
        "Unable to reset \"Don't show dialog\" preference. Check whether finder is running"));
}

void orvPreferencePane::handleProjectImportResponse(const quelm::Dictionary& payload) {
    if (PayloadNumber(payload, keys::result) == 0) return;
    Alert alert{
        .title = GetLocalizedString("PopulateProjects.ImportFailed", "Project Loader failed"),
        .message = GetLocalizedString("PopulateProjectsController.UnableToStart",
                                      "Unable to start up project loader. Please contact "
                                      "your administrator."),
        .informativeText = {},
        .buttons = {GetLocalizedString("ProjectSync.Close", "Close")},
        .style = AlertStyle::Critical};
    if (payload.find(keys::running)) {
        if (PayloadText(payload, keys::running) != "1") return;
        alert.title = GetLocalizedString("PopulateProjects.LoaderAlreadyRunning",
                                         "Project Loader already running");
        alert.message = GetLocalizedString("PopulateProjectsController.AlreadyRunning",
                                           "Unable to start up project loader. Project loader is "
                                           "already running.");
    }
    tell(alert);
}

}  // namespace orv

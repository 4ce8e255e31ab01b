#include <algorithm>
#include <utility>

#include "agentlink/AgentVocabulary.h"
#include "foundation/system/LocalizedString.h"
#include "pane/PreferencePane.h"
#include "pane/password/OnlinePasswordController.h"
#include "pane/settings/WarningDays.h"
#include "support/ApplicationNames.h"

// What the panel's buttons do.

namespace orv {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

namespace {

constexpr std::chrono::seconds answerPatience(3);

}  // namespace

std::vector<std::pair<Button*, orvPreferencePane::Action>> orvPreferencePane::buttonActions() {
    using Pane = orvPreferencePane;
    return {
        {&outlets_._allowRemoteAccess, &Pane::allowRemoteAccessClicked},
        {&outlets_._verifyPasswordButton, &Pane::verifyPasswordButtonChanged},
        {&outlets_._resetDontShow, &Pane::resetShowDialogPreference},
        {&outlets_._progressButton, &Pane::showProgress},
        {&outlets_._restoreProgressButton, &Pane::restoreProgressButtonPressed},
        {&outlets_._manageBackupsButton, &Pane::showSharingWindow},
        {&outlets_._backupPolicyButton, &Pane::backupPolicyButtonPressed},
        {&outlets_._copyDeviceInfoButton, &Pane::copyDeviceInfoToClipboard},
        {&outlets_._copyDeviceIDButton, &Pane::copyDeviceIDToClipboard},
        {&outlets_._removeFolderButton, &Pane::removeFolder},
        {&outlets_._showInFinderButton, &Pane::showFolderInFinder},
        {&outlets_._advancedSettings, &Pane::advancedSettings},
        {&outlets_._deleteAccountButton, &Pane::deleteAccountClicked},
    };
}

void orvPreferencePane::wireActions() {
    status_.setConnectActions([this] { connect(); }, [this] { disconnect(); });
    for (const auto& [button, action] : buttonActions())
        button->setAction([this, action = action] { (this->*action)(); });
    outlets_._accountsButton.setAction([this] { accountChosen(); });
    outlets_._warningDays.setAction([this] { warningDaysChosen(); });
    outlets_._backupPolicyButton.setTitle(GetLocalizedString(
        "PrefPane.PolicyControlsBackup", "Let the policy of my team choose what is backed up"));
    outlets_._foldersList.setSelectionDidChange([this] { updateFolderButtons(); });
}

/// The outlets outlive the panel, and so may the widgets.
void orvPreferencePane::unwireActions() {
    for (const auto& [button, action] : buttonActions())
        button->setAction({});
    outlets_._accountsButton.setAction({});
    outlets_._warningDays.setAction({});
    outlets_._foldersList.setSelectionDidChange({});
    outlets_._tabs.setDelegate({});
}

/// Nothing leads to windows and programs that are not there.
void orvPreferencePane::hideWhatIsNotThere() {
    View* const absent[] = {&outlets_._startOnLoginButton, &outlets_._progressButton,
                            &outlets_._newAccountButton,   &outlets_._supportButton,
                            &outlets_._uninstallButton,    &outlets_._copyLogsButton,
                            &outlets_._allowRemoteAccess};
    for (View* view : absent)
        view->setHidden(true);
    outlets_._keychainNotice.setHidden(true);
    outlets_._settingsNotice.setHidden(true);
}

void orvPreferencePane::connect() {
    const std::string agentId = _activeAccount->agentID();
    environment_.application.launch(
        agentId, [agentId] { NotifyAgentEvent(agentId, events::requestConnect); });
}

void orvPreferencePane::disconnect() {
    NotifyAgentEvent(_activeAccount->agentID(), events::requestDisconnect);
}

void orvPreferencePane::allowRemoteAccessClicked() {
    settings_.change(HintAccess,
                     [isOn = outlets_._allowRemoteAccess.isOn()](AccountRecords& records) {
                         records.agentSettings.setRemoteAccess(isOn);
                     });
    saveSettings();
}

void orvPreferencePane::verifyPasswordButtonChanged() {
    const bool isOn = outlets_._verifyPasswordButton.isOn();
    if (!isOn) {
        OnlinePasswordController controller(
            {*environment_.services.runLoop, environment_.background, environment_.alerts,
             environment_.windows, environment_.accounts},
            _activeAccount);
        controller.disableRememberPassword();
        if (!controller.checkPassword()) return outlets_._verifyPasswordButton.setOn(true);
        outlets_._verifyPasswordButton.setOn(false);  // settings were perhaps shown meanwhile
    }
    settings_.change(HintAccess, [isOn](AccountRecords& records) {
        records.agentSettings.setAskForPassword(isOn);
    });
    saveSettings();
}

void orvPreferencePane::resetShowDialogPreference() {
    _responseTimer =
        environment_.services.runLoop->after(answerPatience, [this] { handleResponseTimeout(); });
    NotifyAgentEvent("0", events::resetShowDialog);
}

void orvPreferencePane::showProgress() {
    NotifyAgentEvent("0", events::storeShowStatus);
}

void orvPreferencePane::restoreProgressButtonPressed() {
    NotifyAgentEvent("0", events::restoreShowStatus);
}

void orvPreferencePane::backupPolicyButtonPressed() {
    if (!outlets_._backupPolicyButton.isOn()) {
        settings_.change(HintAgentSettings, [](AccountRecords& records) {
            records.agentSettings.setPolicyControlsBackup(0);
        });
        saveSettings();
        updateBackupUI();
        return status_.showBackupStatus();
    }
    const Alert alert{
        .title = GetLocalizedString("QuelmPreferencePane.Warning", "WARNING"),
        .message = GetLocalizedString("QuelmPreferencePane.Warning", "WARNING"),
        .informativeText = FormatLocalizedString(
            "QuelmPreferencePane.DeleteCustomChangesBackup",
            "All backup locations and settings will be lost by enabling the “%@” option. Are you "
            "sure you want to continue?",
            {outlets_._backupPolicyButton.title()}),
        .buttons = {GetLocalizedString("QuelmPreferencePane.Yes", "Yes"),
                    GetLocalizedString("QuelmPreferencePane.No", "No")},
        .style = AlertStyle::Critical,
        .cancelButton = 1};
    tell(alert, [this](int button) {
        updateBackupUI();  // it was perhaps locked meanwhile
        if (button == 0 && outlets_._backupPolicyButton.isEnabled()) restorePolicyBackupPaths();
        updateBackupUI();
        status_.showBackupStatus();
    });
}

void orvPreferencePane::restorePolicyBackupPaths() {
    settings_.change(HintAgentSettings | HintBackupSelection, [](AccountRecords& records) {
        records.agentSettings.setPolicyControlsBackup(1);
        const quelm::Array* const paths = records.agentSettings.backupPolicyPaths();
        records.storageSettings.updateWithPolicyPaths(paths ? *paths : quelm::Array());
    });
    saveSettings();
    loadStorageSettings();
}

void orvPreferencePane::copyDeviceInfoToClipboard() {
    environment_.clipboard.setText(DeviceInfoText(deviceInfo_));
}

void orvPreferencePane::copyDeviceIDToClipboard() {
    environment_.clipboard.setText(DeviceIdText(deviceInfo_));
}

void orvPreferencePane::removeFolder() {
    std::vector<std::string> paths;
    for (const std::size_t row : outlets_._foldersList.selectedRows())
        paths.push_back(outlets_._foldersList.textAt(FolderTable::path, row));
    if (paths.empty()) return;
    tell({.title = settingsTitle(),
          .message = GetLocalizedString("PrefPane.RemoveFolder", "Remove selected folders?"),
          .informativeText = {},
          .buttons = {GetLocalizedString("PrefPane.No", "No"),
                      GetLocalizedString("PrefPane.Yes", "Yes")}},
         [this, paths](int button) {
             if (button == 1 && mayRemoveFolders()) removeFolders(paths);
         });
}

void orvPreferencePane::removeFolders(const std::vector<std::string>& paths) {
    settings_.change(HintBackupSelection, [paths](AccountRecords& records) {
        for (const std::string& path : paths)
            records.storageSettings.removeTopLevelPath(path);
    });
    folders_.removeRows(paths);
    loadStorageSettings();
    updateInputs();
    saveSettings();
}

void orvPreferencePane::showFolderInFinder() {
    const auto& rows = outlets_._foldersList.selectedRows();
    if (rows.empty()) return;
    environment_.services.workspace->openPath(
        outlets_._foldersList.textAt(FolderTable::path, *rows.begin()));
}

void orvPreferencePane::advancedSettings() {
    advanced_.showWindow();
}

void orvPreferencePane::accountChosen() {
    const std::size_t index = outlets_._accountsButton.indexOfSelectedItem();
    Account* const account = index < listedAccounts_.size() ? listedAccounts_[index] : nullptr;
    if (!account || account == _activeAccount || !setActiveAccount(account)) return;
    loadHistory();
    updateUi();
    showDeviceInfo();
    status_.startDisconnected();
    NotifyAgentReportStatus(account->agentID());
}

void orvPreferencePane::warningDaysChosen() {
    const std::size_t index = outlets_._warningDays.indexOfSelectedItem();
    if (index >= listedWarningDays_.size()) return;
    settings_.change(HintAgentSettings,
                     [days = listedWarningDays_[index]](AccountRecords& records) {
                         records.agentSettings.setBackupWarningDays(days);
                     });
    updateWarningDays();
    updateInputs();
    status_.showBackupStatus();
    saveSettings();
}

void orvPreferencePane::deleteAccountClicked() {
    Account& account = *_activeAccount;
    if (account.agentID() == "1") {
        environment_.windows.activate();
        return tell({.title = {},
                     .message = ApplicationLongName,
                     .informativeText = GetLocalizedString("DeleteAccount.CantDeleteDefault",
                                                           "Can't delete default account."),
                     .buttons = {GetLocalizedString("DeleteAccount.OK", "OK")},
                     .style = AlertStyle::Critical});
    }
    environment_.application.askIfRunning(
        [this, life = std::weak_ptr(life_), &account](bool isRunning) {
            if (!life.expired() && !isRunning) askToDelete(account);
        });
}

/// Only what was named in the question goes: the settings may change while it stands.
void orvPreferencePane::askToDelete(Account& account) {
    const AccountRemains remains = RemainsOf(account, environment_.accounts);
    tell(DeletionQuestion(account, remains), [this, &account, remains](int button) {
        if (button != 1) return;
        if (RemainsOf(account, environment_.accounts) != remains) return askToDelete(account);
        deleteAccount(account, remains);
    });
}

void orvPreferencePane::deleteAccount(Account& account, const AccountRemains& remains) {
    DeleteAccountData(
        account, remains, environment_.accounts, environment_.serviceBackground,
        [this, life = std::weak_ptr(life_), &account](const std::vector<std::string>& leftOver) {
            if (life.expired()) return;
            selectEntryBefore(account);
            if (!leftOver.empty()) printErrorMessage(LeftOverText(leftOver));
        });
}

/// Unless another was chosen meanwhile.
void orvPreferencePane::selectEntryBefore(const Account& account) {
    const std::size_t index = outlets_._accountsButton.indexOfSelectedItem();
    if (&account == _activeAccount && index > 0) outlets_._accountsButton.choose(index - 1);
}

}  // namespace orv

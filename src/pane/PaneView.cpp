#include <algorithm>
#include <utility>

#include "foundation/system/LocalizedString.h"
#include "pane/PreferencePane.h"
#include "pane/settings/WarningDays.h"
#include "pane/status/AccountInputs.h"

// What of the panel is shown, and as what.

namespace orv {

using quelm::FormatLocalizedString;

void orvPreferencePane::updateInputs() {
    TakeAccountSettings(status_.inputs(), environment_.accounts, settingsAccount_, *_activeAccount);
    status_.inputs().violations = environment_.violations.numberOfViolations();
}

void orvPreferencePane::updateUi() {
    updateInputs();
    const orvAgentSettings& settings = agentSettings();
    const auto team = settings.teamName();
    outlets_._desktopNameLabel.setStringValue(settings.desktopName());
    outlets_._usernameLabel.setStringValue(
        team && !team->empty()
            ? FormatLocalizedString("PrefPane.UserAndTeam", "%@ (%@)", {settings.fullName(), *team})
            : settings.fullName());
    outlets_._advancedSettings.setHidden(isFSA || !settings.syncEnabled());
    outlets_._resetDontShow.setHidden(true);
    outlets_._verifyPasswordButton.setHidden(true);
    updateBackupUI();
    const bool isLocked = settings.agentConfigLockedEnabled();
    View* const controls[] = {&outlets_._connectButton, &outlets_._allowRemoteAccess,
                              &outlets_._startOnLoginButton, &outlets_._verifyPasswordButton,
                              &outlets_._uninstallButton};
    for (View* control : controls) {
        control->setEnabled(!isLocked);
        control->setToolTip(
            isLocked ? quelm::GetLocalizedString("PrefPane.LockedByPolicy",
                                                 "Your organisation has locked this setting.")
                     : "");
    }
    advanced_.update();
    updateAccountsButton();
    updateWarningDays();
}

void orvPreferencePane::updateWarningDays() {
    const WarningDaysChoice choice = WarningDaysOf(agentSettings().backupWarningDays());
    std::vector<std::string> titles;
    for (const std::int32_t days : choice.days)
        titles.push_back(WarningDaysText(days));
    listedWarningDays_ = choice.days;
    outlets_._warningDays.setTitles(std::move(titles));
    outlets_._warningDays.selectItemAtIndex(choice.selected);
}

void orvPreferencePane::updateBackupUI() {
    const std::int32_t policy = agentSettings().policyControlsBackup();
    const bool isLocked = agentSettings().agentConfigLockedEnabled();
    outlets_._backupPolicyButton.setOn(policy == 1);
    outlets_._backupPolicyButton.setEnabled(!isLocked && policy != -1);
    outlets_._manageBackupsButton.setEnabled(policy == 0 && !isLocked);
    status_.inputs().backup.policyControlsBackup = policy == 1;
    updateFolderButtons();
}

/// What a policy chose would come back.
bool orvPreferencePane::mayRemoveFolders() const {
    const orvAgentSettings& settings = agentSettings();
    return settings.policyControlsBackup() != 1 && !settings.agentConfigLockedEnabled();
}

void orvPreferencePane::updateFolderButtons() {
    const bool isChosen = !outlets_._foldersList.selectedRows().empty();
    outlets_._showInFinderButton.setEnabled(isChosen);
    outlets_._removeFolderButton.setEnabled(isChosen && mayRemoveFolders());
}

/// By their labels; one account needs no choice.
void orvPreferencePane::updateAccountsButton() {
    std::vector<std::string> titles;
    std::size_t active = 0;
    listedAccounts_.clear();
    for (std::size_t i = 0; Account* const account = environment_.accounts.accountAtIndex(i); ++i) {
        if (account == _activeAccount) active = i;
        listedAccounts_.push_back(account);
        titles.push_back(account->agentSettings().configLabel());
    }
    outlets_._accountsButton.setHidden(titles.size() < 2);
    outlets_._accountsButton.setTitles(std::move(titles));
    outlets_._accountsButton.selectItemAtIndex(active);
}

/// Of the shown account, and of this computer.
void orvPreferencePane::showDeviceInfo() {
    auto hardwareId = std::make_shared<std::string>();
    environment_.background.perform([hardwareId] { *hardwareId = HardwareIdText(); },
                                    [this, life = std::weak_ptr(life_), hardwareId] {
                                        if (life.expired()) return;
                                        deviceInfo_.hardwareId = *hardwareId;
                                        outlets_._hwID.setStringValue(*hardwareId);
                                    });
    deviceInfo_ = DeviceInfoOf(agentSettings(), deviceInfo_.hardwareId);
    outlets_._accountID.setStringValue(deviceInfo_.accountId);
    outlets_._cellName.setStringValue(deviceInfo_.cellName);
    outlets_._agentID.setStringValue(deviceInfo_.deviceId);
}

void orvPreferencePane::showStorage() {
    SummaryPanel panel = outlets_._summaryPanelView.model();
    panel.setFigures({.quota = _quota,
                      .thisComputer = _totalThisComputer,
                      .otherComputers = _totalOtherComputers,
                      .projects = status_.progress().totalBytesProjects});
    panel.setSyncEnabled(agentSettings().syncEnabled());
    panel.setBackupEnabled(status_.inputs().backup.isWanted());
    const StorageFigures figures = panel.figures();
    outlets_._pieChartView.setModel(figures);
    outlets_._spaceUsageLabel.setStringValue(DescriptionInWords(figures));
    outlets_._summaryPanelView.setModel(panel);
}

void orvPreferencePane::enableProjectsStatus() {
    const bool isHidden = !agentSettings().syncEnabled();
    View* const block[] = {&outlets_._projectsStatusImage, &outlets_._projectsFolderImage,
                           &outlets_._projectsFolderText, &outlets_._projectsStatus1,
                           &outlets_._projectsStatus2};
    for (View* view : block)
        view->setHidden(isHidden);
    showStorage();
}

void orvPreferencePane::enableBackup() {
    updateInputs();
    const bool isOn = status_.inputs().backup.isWanted();
    const orv_StorageQuotaInfo& quota = storageQuotaInfo();
    if (isOn) {
        outlets_._tabs.insert(outlets_._backupTabItem,
                              outlets_._tabs.indexOf(tabs::bandwidth).value_or(0));
    } else {
        outlets_._tabs.remove(tabs::backup);
        status_.clearBackupStatus();
    }
    outlets_._summaryPanelView.setHidden(isFSA || (!isOn && !quota.haveQuota()));
    const bool showsPie = isOn || (quota.haveQuota() && !quota.unlimitedQuota());
    outlets_._pieChartView.setHidden(isFSA || !showsPie);
    outlets_._spaceUsageLabel.setHidden(isFSA || !showsPie);
    View* const block[] = {&outlets_._backupStatusImage, &outlets_._backupFolderImage,
                           &outlets_._backupFolderText};
    for (View* view : block)
        view->setHidden(!isOn);
    showStorage();
    status_.resetStatusInfo();
}

void orvPreferencePane::setStateOfVerifyPasswordButton() {
    outlets_._verifyPasswordButton.setOn(agentSettings().askForPassword());
}

void orvPreferencePane::showDebugTab() {
    const bool isShown = environment_.accounts.defaultConfig().debugTabEnabled();
    if (isShown) {
        outlets_._tabs.append(outlets_._debugTabItem);
    } else {
        outlets_._tabs.remove(tabs::debug);
    }
    if (std::exchange(isDebugTabShown_, isShown) != isShown || isShown)
        debugEvents_.setListening(isShown);
}

void orvPreferencePane::setMPFImage() {
    outlets_._projectsFolderImage.setImageName("master-project-folder");
    outlets_._backupFolderImage.setImageName("backup");
}

void orvPreferencePane::projectsListChanged() {
    const ProjectsList& projects = environment_.projects;
    status_.setProjects(static_cast<std::int64_t>(projects.subscribedProjectsCount()),
                        projects.subscribedProjectsFiles(), projects.subscribedProjectsBytes());
    projectTable_.show(projects.subscribedProjects());
    status_.showProjectsStatus();
    showStorage();
}

void orvPreferencePane::lockedFilesChanged() {
    status_.inputs().locks = static_cast<std::int64_t>(environment_.locks.myLocks().size());
    status_.showProjectsStatus();
}

}  // namespace orv

#include <utility>

#include "agentlink/AgentVocabulary.h"
#include "config/ConfigurationPath.h"
#include "config/KeychainRemedy.h"
#include "config/Locations.h"
#include "foundation/system/LocalizedString.h"
#include "pane/PreferencePane.h"
#include "support/ApplicationNames.h"

// What the panel reads of the settings, and how it tells what is wrong with them.

namespace orv {

namespace {}  // namespace

void orvPreferencePane::loadSettings() {
    showDebugTab();
    environment_.background.setTold([this](bool isSlow) {
        isSlow_ = isSlow;
        showSettingsNotice();
    });
    takeSharingFlags();
    status_.setCompleted([this] {
        history_->noteComplete(now());
        status_.inputs().lastComplete = history_->lastComplete();
    });
    loadHistory();
    healthCheck_.ask();
    checkKeychain();
    checkBus();
}

void orvPreferencePane::loadHistory() {
    history_->load([this] {
        status_.inputs().lastComplete = history_->lastComplete();
        status_.showConnectionStatus();
    });
}

/// The path in use holds until the new one is known, which waits for a file.
void orvPreferencePane::startFollowing() {
    auto path = std::make_shared<std::string>();
    environment_.background.perform([path] { *path = ResolveConfigBasePath(); },
                                    [this, life = std::weak_ptr(life_), path] {
                                        if (life.expired()) return;
                                        SetConfigBasePath(*path);
                                        loadStorageSettings();
                                        activeConfiguration_.finished();
                                    });
}

void orvPreferencePane::loadStorageSettings() {
    folders_.loadStorageSettings(settingsAccount_.records(),
                                 GetConfigurationPath(files::storageExceptions));
}

void orvPreferencePane::foldersShown() {
    StatusInputs& inputs = status_.inputs();
    inputs.backup.offlineIncomplete = folders_.isOfflineIncomplete();
    const auto before = std::exchange(inputs.offlineVolumes, folders_.offlineVolumes());
    if (before != inputs.offlineVolumes) status_.showBackupStatus();
    updateFolderButtons();
}

void orvPreferencePane::initStorageQuotaSettings() {
    const orv_StorageQuotaInfo& info = storageQuotaInfo();
    _quota = info.haveQuota() ? info.quota() : quotaWithoutInformation;
    _totalOtherComputers = info.totalOtherComputers();
    _totalThisComputer = info.totalThisComputer();
    showStorage();
}

/// So that totals which arrive alone do not look like a backup of which everything is stored.
void orvPreferencePane::computeBackupAndSync() {
    environment_.projects.loadProjectList();
    status_.setBackupTotals(storageFoldersInfo().total(), storageFoldersInfo().stored());
}

void orvPreferencePane::recordsReloaded() {
    settings_.reapply();
    updateInputs();
    healthCheck_.ask();
}

void orvPreferencePane::startHealthCheck() {
    auto health = std::make_shared<SettingsHealth>();
    environment_.background.perform(
        [health, folder = settingsAccount_.accountFolderPath()] {
            *health = CheckSettings(folder);
        },
        [this, life = std::weak_ptr(life_), health] {
            if (life.expired()) return;
            health_ = std::move(*health);
            showSettingsNotice();
            healthCheck_.finished();
        });
}

void orvPreferencePane::showSettingsNotice() {
    const std::string notice = SettingsNotice(health_, isSlow_);
    outlets_._settingsNotice.setStringValue(notice);
    outlets_._settingsNotice.setHidden(notice.empty());
}

void orvPreferencePane::checkKeychain() {
    using Status = platform::Keychain::Status;
    auto state = std::make_shared<Status>(Status::Unavailable);
    environment_.serviceBackground.perform(
        [state, keychain = environment_.services.keychain.get()] {
            if (keychain) *state = keychain->state();
        },
        [this, life = std::weak_ptr(life_), state] {
            if (life.expired()) return;
            outlets_._keychainNotice.setHidden(*state == Status::Done);
            outlets_._keychainNotice.setStringValue(
                *state == Status::Done ? ""
                                       : quelm::FormatLocalizedString(
                                             "PrefPane.NoKeychain", "Passwords cannot be kept. %@",
                                             {KeychainRemedy(*state)}));
        });
}

/// Without a bus no agent can be reached, and nothing ever says so.
void orvPreferencePane::checkBus() {
    auto* const center = environment_.services.notifications.get();
    const auto changed = [this](bool isConnected) {
        isBusThere_ = isConnected;
        busConnectionChanged(isConnected);
    };
    busObservation_ = center ? center->observeConnection(changed) : nullptr;
    auto isThere = std::make_shared<bool>(false);
    environment_.serviceBackground.perform(
        [isThere, center] {
            *isThere = center && center->waitUntilListening(std::chrono::seconds(2));
        },
        [this, life = std::weak_ptr(life_), isThere] {
            if (!life.expired() && !*isThere && !isBusThere_) busConnectionChanged(false);
        });
}

void orvPreferencePane::busConnectionChanged(bool isConnected) {
    const std::string& agentId = _activeAccount->agentID();
    if (isConnected) {
        status_.clearConnectionError();
        NotifyAgentReportStatus(agentId);
        environment_.locks.repopulateList();
        return requestFSAList();
    }
    status_.notifyConnectionStatus(static_cast<std::int32_t>(ConnectionStatus::NotRunning), now(),
                                   agentId);
    status_.notifyConnectionError(
        "",
        quelm::GetLocalizedString("PrefPane.NoBus",
                                  "The message bus of this session does not answer, so the backup "
                                  "service cannot be reached. Sign out and in again."),
        0, 0, agentId);
}

std::string orvPreferencePane::settingsTitle() const {
    return quelm::FormatLocalizedString("PrefPane.Settings", "%@ Settings", {ApplicationLongName});
}

/// What fails again and again is told again only when it was read.
void orvPreferencePane::tell(const Alert& alert, std::function<void(int button)> answered) {
    const std::string key =
        alert.title + "\n" + alert.message + "\n" + alert.informativeText.value_or("");
    std::erase_if(openAlerts_, [](const auto& open) { return open.second.expired(); });
    auto open = std::make_shared<bool>(true);
    if (!openAlerts_.try_emplace(key, open).second) return;
    environment_.alerts.show(alert, [this, life = std::weak_ptr(life_), open = std::move(open), key,
                                     answered = std::move(answered)](int button) {
        if (life.expired()) return;
        openAlerts_.erase(key);
        if (answered) answered(button);
    });
}

void orvPreferencePane::printError(const SettingsError& error) {
    printErrorMessage(TextOf(error, paneErrorTexts));
    healthCheck_.ask();
}

void orvPreferencePane::printErrorMessage(const std::string& message) {
    tell({.title = settingsTitle(),
          .message = message,
          .informativeText = {},
          .buttons = {quelm::GetLocalizedString("PrefPane.OK", "OK")}});
}

}  // namespace orv

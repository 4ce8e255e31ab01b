#include <utility>

#include "agentlink/AgentVocabulary.h"
#include "config/ConfigurationPath.h"
#include "config/KeychainRemedy.h"
#include "config/Locations.h"
#include "config/PersistentFlag.h"
#include "foundation/system/LocalizedString.h"
#include "pane/PreferencePane.h"
#include "support/ApplicationNames.h"

// What the panel reads of the settings, and how it tells what is wrong with them.

namespace orv {

namespace {

constexpr std::int64_t quotaWithoutInformation = std::int64_t{5} << 30U;

}  // namespace

/// The flags ask for the choice of folders; they are left for the window that makes it.
void orvPreferencePane::loadSettings() {
    showDebugTab();
    environment_.background.setTold([this](bool isSlow) {
        isSlow_ = isSlow;
        showSettingsNotice();
    });
    auto isAsked = std::make_shared<bool>(false);
    environment_.background.perform(
        [isAsked, agentId = _activeAccount->agentID()] {
            *isAsked = orv_PersistentFlag::isSet(orv_PersistentFlag::openSharingWindow, agentId) ||
                       orv_PersistentFlag::isSet(orv_PersistentFlag::scanShareInfo, agentId);
        },
        [this, life = std::weak_ptr(life_), isAsked] {
            if (life.expired() || !*isAsked) return;
            outlets_._tabs.select(tabs::backup);
            openSharingWindow();
        });
    history_.load([this] {
        status_.inputs().lastComplete = history_.lastComplete();
        status_.showConnectionStatus();
    });
    status_.setCompleted([this] {
        history_.noteComplete(now());
        status_.inputs().lastComplete = history_.lastComplete();
    });
    checkHealth();
    checkKeychain();
    checkBus();
}

void orvPreferencePane::loadStorageSettings() {
    folders_.loadStorageSettings(settingsAccount_.records(),
                                 GetConfigurationPath(files::storageExceptions));
}

void orvPreferencePane::foldersShown() {
    BackupSituation& backup = status_.inputs().backup;
    status_.inputs().offlineVolumes = folders_.offlineVolumes();
    if (std::exchange(backup.offlineIncomplete, folders_.isOfflineIncomplete()) !=
        backup.offlineIncomplete)
        status_.showBackupStatus();
    updateFolderButtons();
}

void orvPreferencePane::initStorageQuotaSettings() {
    const orv_StorageQuotaInfo& info = storageQuotaInfo();
    _quota = info.haveQuota() ? info.quota() : quotaWithoutInformation;
    _totalOtherComputers = info.totalOtherComputers();
    _totalThisComputer = info.totalThisComputer();
    showStorage();
}

void orvPreferencePane::reloadRecords(std::function<void()> done) {
    environment_.accounts.reload(settingsAccount_,
                                 [this, life = std::weak_ptr(life_), done = std::move(done)] {
                                     if (life.expired()) return;
                                     recordsReloaded();
                                     done();
                                 });
}

void orvPreferencePane::recordsReloaded() {
    settings_.reapply();
    updateInputs();
    checkHealth();
}

void orvPreferencePane::checkHealth() {
    auto health = std::make_shared<SettingsHealth>();
    environment_.background.perform(
        [health, folder = settingsAccount_.accountFolderPath()] {
            *health = CheckSettings(folder);
        },
        [this, life = std::weak_ptr(life_), health] {
            if (life.expired()) return;
            health_ = std::move(*health);
            showSettingsNotice();
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
    environment_.slowBackground.perform(
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
    busObservation_ = center ? center->observeConnection(
                                   [this](bool isConnected) { busConnectionChanged(isConnected); })
                             : nullptr;
    auto isThere = std::make_shared<bool>(false);
    environment_.slowBackground.perform(
        [isThere, center] {
            *isThere = center && center->waitUntilListening(std::chrono::seconds(2));
        },
        [this, life = std::weak_ptr(life_), isThere] {
            if (!life.expired() && !*isThere) busConnectionChanged(false);
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

void orvPreferencePane::tell(Alert alert, std::function<void(int button)> answered) {
    environment_.alerts.show(
        alert, [life = std::weak_ptr(life_), answered = std::move(answered)](int button) {
            if (!life.expired() && answered) answered(button);
        });
}

void orvPreferencePane::printError(const SettingsError& error) {
    printErrorMessage(TextOf(error, paneErrorTexts));
    checkHealth();
}

void orvPreferencePane::printErrorMessage(const std::string& message) {
    tell({.title = settingsTitle(),
          .message = message,
          .informativeText = {},
          .buttons = {quelm::GetLocalizedString("PrefPane.OK", "OK")}});
}

}  // namespace orv

#include <memory>
#include <utility>

#include "agentlink/AgentNotifications.h"
#include "agentlink/AgentVocabulary.h"
#include "config/PersistentFlag.h"
#include "pane/PreferencePane.h"

// The window in which the folders are chosen, and what asks for it.

namespace orv {

void orvPreferencePane::showSharingWindow() {
    openSharingWindow();
}

/// Once for the active account. What a policy chose is only shown.
void orvPreferencePane::openSharingWindow() {
    outlets_._tabs.select(tabs::backup);
    environment_.windows.activate();
    if (!outlets_._manageBackupsButton.isEnabled()) return;
    if (!sharing_) {
        endedSharing_.reset();
        sharing_ = std::make_unique<orv_SharingWindowController>(
            SharingEnvironment{environment_.services, environment_.background,
                               environment_.folderBackground, environment_.scanBackground,
                               environment_.hiddenBackground, environment_.alerts,
                               environment_.filePanels, environment_.windows},
            *_activeAccount, outlets_._pieChartView.model());
    }
    sharing_->openSharingWindowWithDelegate(this);
}

/// Later: the window is calling.
void orvPreferencePane::releaseSharingWindow() {
    endedSharing_ = std::move(sharing_);
    environment_.services.runLoop->post([this, life = std::weak_ptr(life_)] {
        if (!life.expired()) endedSharing_.reset();
    });
}

/// One flag asks once, the other until the folders have been chosen.
void orvPreferencePane::takeSharingFlags() {
    auto isAsked = std::make_shared<bool>(false);
    environment_.background.perform(
        [isAsked, agentId = _activeAccount->agentID()] {
            const bool wasAsked =
                orv_PersistentFlag::getAndRemove(orv_PersistentFlag::openSharingWindow, agentId);
            *isAsked =
                wasAsked || orv_PersistentFlag::isSet(orv_PersistentFlag::scanShareInfo, agentId);
        },
        [this, life = std::weak_ptr(life_), isAsked] {
            if (!life.expired() && *isAsked) openSharingWindow();
        });
}

void orvPreferencePane::handleStorageWindow() {
    environment_.background.perform(
        [agentId = _activeAccount->agentID()] {
            orv_PersistentFlag::remove(orv_PersistentFlag::openSharingWindow, agentId);
        },
        {});
    openSharingWindow();
}

void orvPreferencePane::sharingDialogDidFinishWithSize(std::uint64_t /*size*/,
                                                       const std::string& agentID) {
    connectAfterSetUp(agentID);
    releaseSharingWindow();
    enableBackup();
    if (!outlets_._tabs.indexOf(tabs::backup)) {
        outlets_._tabs.selectFirst();
        NotifyAgentSettingsChanged("1", HintAgentSettings);
    }
    handleStorageFolders();
}

void orvPreferencePane::sharingDialogCancelled() {
    releaseSharingWindow();
}

/// The first choice of folders is the last step of setting an account up.
void orvPreferencePane::connectAfterSetUp(const std::string& agentID) {
    auto isFirst = std::make_shared<bool>(false);
    environment_.background.perform(
        [isFirst, agentID] {
            *isFirst = orv_PersistentFlag::getAndRemove(orv_PersistentFlag::scanShareInfo, agentID);
        },
        [this, life = std::weak_ptr(life_), isFirst, agentID] {
            if (life.expired() || !*isFirst) return;
            environment_.application.launch(
                agentID, [agentID] { NotifyAgentEvent(agentID, events::requestConnect); });
        });
}

}  // namespace orv

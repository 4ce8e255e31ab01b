#include "agentlink/AgentNotifications.h"
#include "agentlink/AgentVocabulary.h"
#include "backup/sharing/SharingWindowController.h"
#include "foundation/system/LocalizedString.h"

// What OK stores.

namespace orv {

using quelm::GetLocalizedString;

/// What is to be stored, and how that went.
struct orv_SharingWindowController::Stored {
    orv_StorageSettings storage;
    orv_FilterSettings filters;
    ExcludedFiles excludedFiles;
    std::string folder;
    bool excludedFilesChanged = excludedFiles.isModified();
    bool isSelectionStored = false;
    bool isStored = false;

    void store() {
        isSelectionStored = storage.store();
        isStored = isSelectionStored && areFiltersStored() &&
                   (!excludedFilesChanged || excludedFiles.saveExcludedFiles());
    }

 private:
    /// Storing itself tells a failure in the log only.
    [[nodiscard]] bool areFiltersStored() const {
        orv_FilterSettings stored(folder);
        return filters.store() && stored.load() && stored.isEqualToAgentSettings(filters);
    }
};

namespace {

Alert notStored(const std::string& folder) {
    return {
        .title = {},
        .message = GetLocalizedString("Sharing.NotStored", "The selection could not be stored."),
        .informativeText = quelm::FormatLocalizedString(
            "Sharing.NotStoredDetail",
            "See whether %@ is there and can be written, and whether the disk is full, and "
            "press OK again. Nothing of what you chose is lost while this window is open.",
            {folder}),
        .buttons = {GetLocalizedString("PrefPane.OK", "OK")},
        .style = AlertStyle::Critical};
}

}  // namespace

void orv_SharingWindowController::saveSettings() {
    selection_.reset();
    facts_->records.storageSettings.setPathsAndFlags(selection());
    setIncludeFilters();
    isSaving_ = true;
    outlets_._cancelButton.setEnabled(false);
    enableChoices();
    outlets_._spinner.startAnimation();
    storageInfoDidChange();
    auto stored = std::make_shared<Stored>(Stored{facts_->records.storageSettings, filterSettings(),
                                                  facts_->excludedFiles, facts_->folder});
    environment_.background.perform([stored] { stored->store(); },
                                    [this, life = std::weak_ptr(life_), stored] {
                                        if (!life.expired()) settingsSaved(*stored);
                                    });
}

void orv_SharingWindowController::settingsSaved(const Stored& stored) {
    isSaving_ = false;
    outlets_._cancelButton.setEnabled(true);
    enableChoices();
    outlets_._spinner.stopAnimation();
    storageInfoDidChange();
    if (!stored.isStored) {
        // what is in the file counts for the agent
        if (stored.isSelectionStored) NotifyAgentSettingsChanged(agentID_, HintBackupSelection);
        return environment_.alerts.show(notStored(facts_->folder), {});
    }
    if (stored.excludedFilesChanged) NotifyAgentSettingsChanged(agentID_, HintExcludedFiles);
    facts_->excludedFiles = stored.excludedFiles;
    NotifyAgentSettingsChanged(agentID_, HintBackupSelection);
    closeDialogWithReturnCode(1);
}

}  // namespace orv

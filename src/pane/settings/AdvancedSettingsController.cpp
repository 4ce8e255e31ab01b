#include "pane/settings/AdvancedSettingsController.h"

#include "agentlink/AgentVocabulary.h"
#include "foundation/system/LocalizedString.h"

namespace orv {

/// A check box and the setting that it shows.
struct AdvancedSettingsController::Row {
    CheckBox AdvancedSettingsOutlets::*box;
    bool (orvAgentSettings::*value)() const;
    void (orvAgentSettings::*setValue)(bool);
    quelm::LocalizedText title;
};

const AdvancedSettingsController::Row AdvancedSettingsController::rows_[] = {
    {&AdvancedSettingsOutlets::_showNotifications,
     &orvAgentSettings::showNotificationsWhenMirroring,
     &orvAgentSettings::setShowNotificationsWhenMirroring,
     {"Advanced.Notifications", "Tell me when files of projects arrive"}},
    {&AdvancedSettingsOutlets::_greenCheckmarks,
     &orvAgentSettings::greenCheckmarks,
     &orvAgentSettings::setGreenCheckmarks,
     {"Advanced.Checkmarks", "Mark synced files in the file manager"}},
    {&AdvancedSettingsOutlets::_smartLocking,
     &orvAgentSettings::smartLockingEnabled,
     &orvAgentSettings::setSmartLockingEnabled,
     {"Advanced.Locking", "Lock files for others while I work on them"}},
    {&AdvancedSettingsOutlets::_smartBadge,
     &orvAgentSettings::smartBadgeEnabled,
     &orvAgentSettings::setSmartBadgeEnabled,
     {"Advanced.Badge", "Show in open documents who else works on them"}},
    {&AdvancedSettingsOutlets::_selectiveSync,
     &orvAgentSettings::selectiveSyncEnabled,
     &orvAgentSettings::setSelectiveSyncEnabled,
     {"Advanced.SelectiveSync", "Let me choose which folders of a project are synced"}},
};

AdvancedSettingsController::AdvancedSettingsController(Account& account, SettingsCycle& cycle,
                                                       PaneWindows& windows)
    : account_(account), cycle_(cycle), windows_(windows) {
    for (const Row& row : rows_) {
        CheckBox& box = outlets_.*row.box;
        box.setTitle(quelm::GetLocalizedString(row.title.key, row.title.defaultText));
        box.setAction([this, &row] { clicked(row); });
    }
    outlets_._lockedNotice.setStringValue(quelm::GetLocalizedString(
        "Advanced.Locked", "Your organisation decides about these settings."));
    outlets_._closeButton.setTitle(quelm::GetLocalizedString("Advanced.Close", "Close"));
    outlets_._closeButton.setAction([this] { outlets_._advancedSettingsWindow.close(); });
    outlets_._advancedSettingsWindow.setCloseAction(
        [this] { outlets_._advancedSettingsWindow.close(); });
}

AdvancedSettingsController::~AdvancedSettingsController() {
    windows_.release(outlets_);
}

void AdvancedSettingsController::showWindow() {
    update();
    windows_.showAdvancedSettings(outlets_);
    outlets_._advancedSettingsWindow.orderFront();
}

void AdvancedSettingsController::update() {
    const bool isLocked = account_.agentSettings().agentConfigLockedEnabled();
    for (const Row& row : rows_) {
        CheckBox& box = outlets_.*row.box;
        box.setOn((account_.agentSettings().*row.value)());
        box.setEnabled(!isLocked);
    }
    outlets_._lockedNotice.setHidden(!isLocked);
}

void AdvancedSettingsController::clicked(const Row& row) {
    cycle_.change(HintAgentSettings,
                  [&row, isOn = (outlets_.*row.box).isOn()](AccountRecords& records) {
                      (records.agentSettings.*row.setValue)(isOn);
                  });
    cycle_.saveSettings();
}

}  // namespace orv

#pragma once

#include "pane/PaneWindows.h"
#include "pane/settings/AdvancedSettingsOutlets.h"
#include "pane/settings/SettingsCycle.h"

namespace orv {

/// The window of settings for projects. A check box is stored as soon as it is clicked. Main thread
/// only.
class AdvancedSettingsController {
 public:
    /// All outlive it.
    AdvancedSettingsController(Account& account, SettingsCycle& cycle, PaneWindows& windows);
    AdvancedSettingsController(const AdvancedSettingsController&) = delete;
    AdvancedSettingsController& operator=(const AdvancedSettingsController&) = delete;
    ~AdvancedSettingsController();

    void showWindow();
    /// Shows what the settings are now.
    void update();
    [[nodiscard]] AdvancedSettingsOutlets& outlets() { return outlets_; }

 private:
    struct Row;
    static const Row rows_[];

    void clicked(const Row& row);

    Account& account_;
    SettingsCycle& cycle_;
    PaneWindows& windows_;
    AdvancedSettingsOutlets outlets_;
};

}  // namespace orv

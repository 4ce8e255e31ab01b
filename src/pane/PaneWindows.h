#pragma once

#include "backup/sharing/SharingWindows.h"
#include "pane/password/OnlinePasswordOutlets.h"
#include "pane/settings/AdvancedSettingsOutlets.h"

namespace orv {

/// Makes the windows beside the panel's own. Each shows its outlets from now on, until they are
/// released; both are done before the outlets go away. Main thread only.
class PaneWindows : public SharingWindows {
 public:
    using SharingWindows::release;

    virtual void showOnlinePassword(OnlinePasswordOutlets& outlets) = 0;
    virtual void showAdvancedSettings(AdvancedSettingsOutlets& outlets) = 0;
    virtual void release(OnlinePasswordOutlets& outlets) = 0;
    virtual void release(AdvancedSettingsOutlets& outlets) = 0;
    /// Brings the panel to the front.
    virtual void activate() = 0;
};

}  // namespace orv

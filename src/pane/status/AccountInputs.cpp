#include "pane/status/AccountInputs.h"

namespace orv {

void TakeAccountSettings(StatusInputs& inputs, const AccountList& accounts, const Account& settings,
                         const Account& active) {
    const orvAgentSettings& shown = settings.agentSettings();
    inputs.agentId = active.agentID();
    inputs.fullName = shown.fullName();
    inputs.syncEnabled = shown.syncEnabled();
    inputs.warningDays = shown.backupWarningDays();
    inputs.backup.backupEnabled = shown.backupEnabled();
    inputs.backup.hasBackupPaths = accounts.hadBackupPaths();
    inputs.backup.policyControlsBackup = shown.policyControlsBackup() == 1;
    inputs.backup.transferOverheadPerFile = active.agentSettings().transferOverheadPerFile();
    inputs.backup.bandwidthSafetyFactor = active.agentSettings().bandwidthSafetyFactor();
}

}  // namespace orv

#include "config/AgentSettingsTable.h"

#include <algorithm>
#include <array>

namespace orv {

namespace {

constexpr auto table = std::to_array<AgentSetting>({
    settings::serverName,
    settings::cellId,
    settings::configLabel,
    settings::desktopName,
    settings::userName,
    settings::userId,
    settings::fullName,
    settings::email,
    settings::teamName,
    settings::rcid,
    settings::accountSetupHandle,
    settings::debugTabEnabled,
    settings::greenCheckmarks,
    settings::traceLevel,
    settings::silentUpgradeAllowed,
    settings::maxAllowedDownloadSpeed,
    settings::maxAllowedUploadSpeed,
    settings::transferOverheadPerFile,
    settings::bandwidthSafetyFactor,
    settings::minMbBackupWindowTresholdSetting,
    settings::minFilesBackupWindowTresholdSetting,
    settings::askForPassword,
    settings::remoteAccess,
    settings::allowRemoteAccess,
    settings::allowNetworkDriveShares,
    settings::allowExternalDriveShares,
    settings::allowReadonlyDriveShares,
    settings::syncEnabled,
    settings::externalSyncEnabled,
    settings::selectiveSyncEnabled,
    settings::projectLoaderEnabled,
    settings::syncProjectAcceptMode,
    settings::smartLockingEnabled,
    settings::smartBadgeEnabled,
    settings::showNotificationsWhenMirroring,
    settings::finderSyncEnabled,
    settings::masterProjectFolder,
    settings::backupEnabled,
    settings::publicUploadEnabled,
    settings::publicPasswordEnabled,
    settings::publicExpirationEnabled,
    settings::calculateSynced,
    settings::limitedConnectionAccount,
    settings::limitedConnectionProjectCount,
    settings::limitedConnectionFileCount,
    settings::limitedConnectionFileSize,
    settings::epfRestrictedToUserProfile,
    settings::policyControlsBackup,
    settings::backupPolicyPaths,
    settings::syncProjectsPolicyList,
    settings::policyControlsProjects,
    settings::agentConfigLockedEnabled,
    settings::rebranderEnabled,
    settings::secureDelete,
    settings::convertTargets,
    settings::badgeHandledFileExtensions,
    settings::badgeIntroductionShown,
    settings::backupWarningDays,
    settings::localUpgradeTest,
    settings::maxBandwidthUpload,
    settings::maxBandwidthDownload,
    settings::tcpChunkSize,
    settings::fileChunkSize,
    settings::printingEnabled,
    settings::shareInfoDebug,
    settings::inboundTraffic,
    settings::outboundTraffic,
    settings::fullRescanInterval,
});

// in the order of AgentSetting
constexpr std::array<std::string_view, std::variant_size_v<AgentSetting>> typeNames = {
    "boolean", "integer", "long", "real", "text", "text", "text list", "array", "dictionary"};

}  // namespace

std::span<const AgentSetting> AllAgentSettings() {
    return table;
}

const AgentSetting* FindAgentSetting(std::string_view key) {
    const auto found = std::ranges::find(table, key, KeyOf);
    return found != table.end() ? &*found : nullptr;
}

std::string_view KeyOf(const AgentSetting& setting) {
    return std::visit([](const auto& typed) { return std::string_view(typed.key); }, setting);
}

SettingAccess AccessOf(const AgentSetting& setting) {
    return std::visit([](const auto& typed) { return typed.access; }, setting);
}

std::string_view TypeNameOf(const AgentSetting& setting) {
    return typeNames[setting.index()];
}

}  // namespace orv

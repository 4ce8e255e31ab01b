#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

// Every key of "user_info.plist", once: its type, its default and whether the panel may write it.
// orvAgentSettings reads and writes through these constants, orvctl through the table of them;
// docs/configuration.md says what each means, and a test compares it with the table.

namespace orv {

enum class SettingAccess {
    /// Written by the agent and the server alone.
    ReadOnly,
    Writable,
    /// Writing what is in effect changes nothing.
    WritableIfChanged,
};

/// A value of fixed default, which also stands in for a value of another type.
template <typename T>
struct Setting {
    const char* key;
    T fallback;
    SettingAccess access = SettingAccess::Writable;
};
using BooleanSetting = Setting<bool>;
using IntegerSetting = Setting<std::int32_t>;
using LongSetting = Setting<std::int64_t>;
using RealSetting = Setting<double>;

/// What a text is where the file has none.
enum class TextDefault {
    Empty,
    AgentServer,
    Label,
    ComputerName,
    LoginName,
    UserName,
    ProjectFolder,
};
struct TextSetting {
    const char* key;
    TextDefault fallback;
    SettingAccess access = SettingAccess::Writable;
    bool emptyIsMissing = false;
};

// Without a default: there may be none.
struct OptionalTextSetting {
    const char* key;
    SettingAccess access = SettingAccess::Writable;
};
/// Texts in one with commas between them.
struct TextListSetting {
    const char* key;
    SettingAccess access = SettingAccess::Writable;
};
struct ArraySetting {
    const char* key;
    SettingAccess access = SettingAccess::ReadOnly;
};
struct DictionarySetting {
    const char* key;
    SettingAccess access = SettingAccess::ReadOnly;
};

using AgentSetting =
    std::variant<BooleanSetting, IntegerSetting, LongSetting, RealSetting, TextSetting,
                 OptionalTextSetting, TextListSetting, ArraySetting, DictionarySetting>;

/// Whether this is the variant for file servers, which keeps three values under keys of its own.
inline constexpr bool isFSA = false;

/// Named as the getters.
namespace settings {

using enum SettingAccess;

inline constexpr TextSetting serverName{"server", TextDefault::AgentServer};
inline constexpr OptionalTextSetting cellId{"cell_id"};
inline constexpr TextSetting configLabel{"config_label", TextDefault::Label};
inline constexpr TextSetting desktopName{"desktop_name", TextDefault::ComputerName,
                                         WritableIfChanged, true};
inline constexpr TextSetting userName{"user", TextDefault::LoginName};
inline constexpr OptionalTextSetting userId{"user_id"};
inline constexpr TextSetting fullName{"full_name", TextDefault::UserName};
inline constexpr TextSetting email{"email", TextDefault::UserName};
inline constexpr OptionalTextSetting teamName{"team_name"};
inline constexpr TextSetting rcid{"rcid", TextDefault::Empty};
inline constexpr OptionalTextSetting accountSetupHandle{"account_setup_handle"};
inline constexpr BooleanSetting debugTabEnabled{"debug_tab_enabled", false};
inline constexpr BooleanSetting greenCheckmarks{"show_green_checkmarks", true};
inline constexpr IntegerSetting traceLevel{"trace_level", 3};
inline constexpr BooleanSetting silentUpgradeAllowed{"auto_upgrade", true};
inline constexpr IntegerSetting maxAllowedDownloadSpeed{"max_allowed_download_speed", 1000,
                                                        ReadOnly};
inline constexpr IntegerSetting maxAllowedUploadSpeed{"max_allowed_upload_speed", 1000, ReadOnly};
inline constexpr RealSetting transferOverheadPerFile{"transfer_overhead_per_file", 0.2, ReadOnly};
inline constexpr RealSetting bandwidthSafetyFactor{"bandwidth_safety_factor", 1.0, ReadOnly};
inline constexpr LongSetting minMbBackupWindowTresholdSetting{"min_mb_backup_window_treshold", 100,
                                                              ReadOnly};
inline constexpr LongSetting minFilesBackupWindowTresholdSetting{"min_files_backup_window_treshold",
                                                                 50, ReadOnly};
inline constexpr BooleanSetting askForPassword{"ask_for_password", false};
inline constexpr BooleanSetting remoteAccess{"remote_access", true};
inline constexpr BooleanSetting allowRemoteAccess{"allow_remote_access", true};
inline constexpr BooleanSetting allowNetworkDriveShares{"network_drive_share", true};
inline constexpr BooleanSetting allowExternalDriveShares{"external_drive_share", true};
inline constexpr BooleanSetting allowReadonlyDriveShares{"readonly_drive_share", true};
inline constexpr BooleanSetting syncEnabled{"two_way_sync", false};
inline constexpr BooleanSetting externalSyncEnabled =
    isFSA ? BooleanSetting{"fsa_external_sync", true} : BooleanSetting{"external_sync", false};
/// Without the variant it follows `syncEnabled` and has no key.
inline constexpr BooleanSetting loftmereFolder =
    isFSA ? BooleanSetting{"fsa_loftmere", false, ReadOnly} : syncEnabled;
inline constexpr BooleanSetting selectiveSyncEnabled{"selective_sync", true};
inline constexpr BooleanSetting projectLoaderEnabled{"project_loader", true};
inline constexpr IntegerSetting syncProjectAcceptMode{"sync_project_accept_mode", -1};
inline constexpr BooleanSetting smartLockingEnabled{"smart_locking", false};
inline constexpr BooleanSetting smartBadgeEnabled{"smart_badge", false};
inline constexpr BooleanSetting showNotificationsWhenMirroring{"notifications_when_mirroring",
                                                               false};
inline constexpr BooleanSetting finderSyncEnabled{"findersync_enabled", false, ReadOnly};
inline constexpr TextSetting masterProjectFolder{"master_project_folder",
                                                 TextDefault::ProjectFolder, Writable, true};
inline constexpr BooleanSetting backupEnabled =
    isFSA ? BooleanSetting{"fsa_backup", true} : BooleanSetting{"backup_enabled", true};
inline constexpr BooleanSetting publicUploadEnabled{"public_upload", false};
inline constexpr BooleanSetting publicPasswordEnabled{"public_password", false};
inline constexpr BooleanSetting publicExpirationEnabled{"public_expiration", false};
inline constexpr BooleanSetting calculateSynced{"calculate_synced", true};
inline constexpr BooleanSetting limitedConnectionAccount{"limited_connection_account", false};
inline constexpr LongSetting limitedConnectionProjectCount{"limited_connection_project_count", 1};
inline constexpr LongSetting limitedConnectionFileCount{"limited_connection_file_count", 1000};
inline constexpr LongSetting limitedConnectionFileSize{"limited_connection_file_size", 2};
inline constexpr BooleanSetting epfRestrictedToUserProfile{"epf_restricted_to_userprofile", false,
                                                           ReadOnly};
inline constexpr IntegerSetting policyControlsBackup{"policy_backup", 1};
inline constexpr ArraySetting backupPolicyPaths{"policy_backup_paths"};
inline constexpr DictionarySetting syncProjectsPolicyList{"sync_projects_policy"};
inline constexpr IntegerSetting policyControlsProjects{"policy_projects", -1};
inline constexpr BooleanSetting agentConfigLockedEnabled{"policy_agent_config_locked", false,
                                                         ReadOnly};
inline constexpr BooleanSetting rebranderEnabled{"rebrander", true, ReadOnly};
inline constexpr BooleanSetting secureDelete{"secure_delete", false, ReadOnly};
inline constexpr OptionalTextSetting convertTargets{"convert_targets", ReadOnly};
inline constexpr TextListSetting badgeHandledFileExtensions{"badge_handled_file_extension"};
inline constexpr IntegerSetting badgeIntroductionShown{"badge_introduction", 0};
/// Days without a complete backup after which the panel warns; 0 for never.
inline constexpr IntegerSetting backupWarningDays{"backup_warning_days", 3};
inline constexpr BooleanSetting localUpgradeTest{"debug_local_upgrade", false, ReadOnly};

// Of the debug window; 0 leaves the choice to the agent.
inline constexpr IntegerSetting maxBandwidthUpload{"max_bandwidth_upload", 0};
inline constexpr IntegerSetting maxBandwidthDownload{"max_bandwidth_download", 0};
inline constexpr IntegerSetting tcpChunkSize{"tcp_chunk_size", 0};
inline constexpr IntegerSetting fileChunkSize{"file_chunk_size", 0};
inline constexpr BooleanSetting printingEnabled{"printing_enabled", false};
inline constexpr BooleanSetting shareInfoDebug{"share_info_debug", false};
inline constexpr BooleanSetting inboundTraffic{"inbound_traffic", false};
inline constexpr BooleanSetting outboundTraffic{"outbound_traffic", false};
inline constexpr IntegerSetting fullRescanInterval{"full_rescan_iterval", 0};

}  // namespace settings

/// All of them.
[[nodiscard]] std::span<const AgentSetting> AllAgentSettings();

/// Null for a key that is not in the table.
[[nodiscard]] const AgentSetting* FindAgentSetting(std::string_view key);

[[nodiscard]] std::string_view KeyOf(const AgentSetting& setting);
[[nodiscard]] SettingAccess AccessOf(const AgentSetting& setting);
/// "boolean", "integer", "long", "real", "text", "text list", "array" or "dictionary".
[[nodiscard]] std::string_view TypeNameOf(const AgentSetting& setting);

}  // namespace orv

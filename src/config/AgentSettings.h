#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "config/AgentSettingsTable.h"
#include "platform/Value.h"

namespace orv {

/// An account's record "user_info.plist". Getters answer what is in effect: the record's value, or
/// the default of AgentSettingsTable.h where it has none or one of another type. Setters change the
/// record, `store` the file.
class orvAgentSettings {
 public:
    /// Without a file.
    orvAgentSettings() = default;
    /// `folder` is the account's configuration folder; without a file as well when it is empty.
    explicit orvAgentSettings(const std::string& folder);

    /// Keeps the record as it is when the file cannot be read. False only without a path.
    bool load();
    bool loadFromSpecificPath(const std::string& path);
    /// Merges the record into the file, whose other keys stay, and reads it again. False when that
    /// cannot be done, with file and record as they were.
    bool store();
    bool storeToSpecificPath(const std::string& path);

    [[nodiscard]] bool isEqualToAgentSettings(const orvAgentSettings& other) const {
        return _settings == other._settings;
    }
    [[nodiscard]] std::optional<std::string> getStringProperty(const char* key) const;
    /// Lives as long as the record and is never written.
    [[nodiscard]] const std::string& password() const { return _password; }

    /// What is in effect for a row of the table; none where that is nothing.
    [[nodiscard]] std::optional<quelm::Value> value(const AgentSetting& setting) const;
    /// False, with nothing changed, for a value of another type and a row that is read only. A list
    /// of texts is answered as an array and taken as one text with commas.
    bool setValue(const AgentSetting& setting, const quelm::Value& value);

    // One pair a row. Text setters answer false, with nothing changed, for what no
    // file can hold: other text than UTF-8, and control characters. In what is borrowed, null
    // stands for none, and the next change ends it.
    [[nodiscard]] std::string serverName() const { return get(settings::serverName); }
    bool setServerName(const std::string& value) { return set(settings::serverName, value); }
    [[nodiscard]] std::optional<std::string> cellId() const { return get(settings::cellId); }
    bool setCellId(const std::string& value) { return set(settings::cellId, value); }
    [[nodiscard]] std::string configLabel() const { return get(settings::configLabel); }
    bool setConfigLabel(const std::string& value) { return set(settings::configLabel, value); }
    [[nodiscard]] std::string desktopName() const { return get(settings::desktopName); }
    bool setDesktopName(const std::string& value) { return set(settings::desktopName, value); }
    [[nodiscard]] std::string userName() const { return get(settings::userName); }
    bool setUserName(const std::string& value) { return set(settings::userName, value); }
    [[nodiscard]] std::optional<std::string> userId() const { return get(settings::userId); }
    bool setUserId(const std::optional<std::string>& value);
    [[nodiscard]] std::string fullName() const { return get(settings::fullName); }
    bool setFullName(const std::string& value) { return set(settings::fullName, value); }
    [[nodiscard]] std::string email() const { return get(settings::email); }
    bool setEmail(const std::string& value) { return set(settings::email, value); }
    [[nodiscard]] std::optional<std::string> teamName() const { return get(settings::teamName); }
    bool setTeamName(const std::string& value) { return set(settings::teamName, value); }
    [[nodiscard]] std::string rcid() const { return get(settings::rcid); }
    bool setRcid(const std::string& value) { return set(settings::rcid, value); }
    [[nodiscard]] std::optional<std::string> accountSetupHandle() const {
        return get(settings::accountSetupHandle);
    }
    bool setAccountSetupHandle(const std::string& value) {
        return set(settings::accountSetupHandle, value);
    }
    [[nodiscard]] bool debugTabEnabled() const { return get(settings::debugTabEnabled); }
    void setDebugTabEnabled(bool value) { set(settings::debugTabEnabled, value); }
    [[nodiscard]] bool greenCheckmarks() const { return get(settings::greenCheckmarks); }
    void setGreenCheckmarks(bool value) { set(settings::greenCheckmarks, value); }
    [[nodiscard]] std::int32_t traceLevel() const { return get(settings::traceLevel); }
    void setTraceLevel(std::int32_t value) { set(settings::traceLevel, value); }
    [[nodiscard]] bool silentUpgradeAllowed() const { return get(settings::silentUpgradeAllowed); }
    void setSilentUpgradeAllowed(bool value) { set(settings::silentUpgradeAllowed, value); }
    [[nodiscard]] std::int32_t maxAllowedDownloadSpeed() const {
        return get(settings::maxAllowedDownloadSpeed);
    }
    [[nodiscard]] std::int32_t maxAllowedUploadSpeed() const {
        return get(settings::maxAllowedUploadSpeed);
    }
    [[nodiscard]] double transferOverheadPerFile() const {
        return get(settings::transferOverheadPerFile);
    }
    [[nodiscard]] double bandwidthSafetyFactor() const {
        return get(settings::bandwidthSafetyFactor);
    }
    [[nodiscard]] std::int64_t minMbBackupWindowTresholdSetting() const {
        return get(settings::minMbBackupWindowTresholdSetting);
    }
    [[nodiscard]] std::int64_t minFilesBackupWindowTresholdSetting() const {
        return get(settings::minFilesBackupWindowTresholdSetting);
    }
    [[nodiscard]] bool askForPassword() const { return get(settings::askForPassword); }
    void setAskForPassword(bool value) { set(settings::askForPassword, value); }
    [[nodiscard]] bool remoteAccess() const { return get(settings::remoteAccess); }
    void setRemoteAccess(bool value) { set(settings::remoteAccess, value); }
    [[nodiscard]] bool allowRemoteAccess() const { return get(settings::allowRemoteAccess); }
    void setAllowRemoteAccess(bool value) { set(settings::allowRemoteAccess, value); }
    [[nodiscard]] bool allowNetworkDriveShares() const {
        return get(settings::allowNetworkDriveShares);
    }
    void setAllowNetworkDriveShares(bool value) { set(settings::allowNetworkDriveShares, value); }
    [[nodiscard]] bool allowExternalDriveShares() const {
        return get(settings::allowExternalDriveShares);
    }
    void setAllowExternalDriveShares(bool value) { set(settings::allowExternalDriveShares, value); }
    [[nodiscard]] bool allowReadonlyDriveShares() const {
        return get(settings::allowReadonlyDriveShares);
    }
    void setAllowReadonlyDriveShares(bool value) { set(settings::allowReadonlyDriveShares, value); }
    [[nodiscard]] bool syncEnabled() const { return get(settings::syncEnabled); }
    void setSyncEnabled(bool value) { set(settings::syncEnabled, value); }
    [[nodiscard]] bool externalSyncEnabled() const { return get(settings::externalSyncEnabled); }
    void setExternalSyncEnabled(bool value) { set(settings::externalSyncEnabled, value); }
    [[nodiscard]] bool loftmereFolder() const { return get(settings::loftmereFolder); }
    [[nodiscard]] bool selectiveSyncEnabled() const { return get(settings::selectiveSyncEnabled); }
    void setSelectiveSyncEnabled(bool value) { set(settings::selectiveSyncEnabled, value); }
    [[nodiscard]] bool projectLoaderEnabled() const { return get(settings::projectLoaderEnabled); }
    void setProjectLoaderEnabled(bool value) { set(settings::projectLoaderEnabled, value); }
    [[nodiscard]] std::int32_t syncProjectAcceptMode() const {
        return get(settings::syncProjectAcceptMode);
    }
    void setSyncProjectAcceptMode(std::int32_t value) {
        set(settings::syncProjectAcceptMode, value);
    }
    [[nodiscard]] bool smartLockingEnabled() const { return get(settings::smartLockingEnabled); }
    void setSmartLockingEnabled(bool value) { set(settings::smartLockingEnabled, value); }
    [[nodiscard]] bool smartBadgeEnabled() const { return get(settings::smartBadgeEnabled); }
    void setSmartBadgeEnabled(bool value) { set(settings::smartBadgeEnabled, value); }
    [[nodiscard]] bool showNotificationsWhenMirroring() const {
        return get(settings::showNotificationsWhenMirroring);
    }
    void setShowNotificationsWhenMirroring(bool value) {
        set(settings::showNotificationsWhenMirroring, value);
    }
    [[nodiscard]] bool finderSyncEnabled() const { return get(settings::finderSyncEnabled); }
    [[nodiscard]] std::string masterProjectFolder() const {
        return get(settings::masterProjectFolder);
    }
    bool setMasterProjectFolder(const std::string& value) {
        return set(settings::masterProjectFolder, value);
    }
    [[nodiscard]] bool backupEnabled() const { return get(settings::backupEnabled); }
    void setBackupEnabled(bool value) { set(settings::backupEnabled, value); }
    [[nodiscard]] bool publicUploadEnabled() const { return get(settings::publicUploadEnabled); }
    void setPublicUploadEnabled(bool value) { set(settings::publicUploadEnabled, value); }
    [[nodiscard]] bool publicPasswordEnabled() const {
        return get(settings::publicPasswordEnabled);
    }
    void setPublicPasswordEnabled(bool value) { set(settings::publicPasswordEnabled, value); }
    [[nodiscard]] bool publicExpirationEnabled() const {
        return get(settings::publicExpirationEnabled);
    }
    void setPublicExpirationEnabled(bool value) { set(settings::publicExpirationEnabled, value); }
    [[nodiscard]] bool calculateSynced() const { return get(settings::calculateSynced); }
    void setCalculateSynced(bool value) { set(settings::calculateSynced, value); }
    [[nodiscard]] bool limitedConnectionAccount() const {
        return get(settings::limitedConnectionAccount);
    }
    void setLimitedConnectionAccount(bool value) { set(settings::limitedConnectionAccount, value); }
    [[nodiscard]] std::int64_t limitedConnectionProjectCount() const {
        return get(settings::limitedConnectionProjectCount);
    }
    void setLimitedConnectionProjectCount(std::int64_t value) {
        set(settings::limitedConnectionProjectCount, value);
    }
    [[nodiscard]] std::int64_t limitedConnectionFileCount() const {
        return get(settings::limitedConnectionFileCount);
    }
    void setLimitedConnectionFileCount(std::int64_t value) {
        set(settings::limitedConnectionFileCount, value);
    }
    [[nodiscard]] std::int64_t limitedConnectionFileSize() const {
        return get(settings::limitedConnectionFileSize);
    }
    void setLimitedConnectionFileSize(std::int64_t value) {
        set(settings::limitedConnectionFileSize, value);
    }
    [[nodiscard]] bool epfRestrictedToUserProfile() const {
        return get(settings::epfRestrictedToUserProfile);
    }
    [[nodiscard]] std::int32_t policyControlsBackup() const {
        return get(settings::policyControlsBackup);
    }
    void setPolicyControlsBackup(std::int32_t value) { set(settings::policyControlsBackup, value); }
    [[nodiscard]] const quelm::Array* backupPolicyPaths() const {
        return get(settings::backupPolicyPaths);
    }
    [[nodiscard]] const quelm::Dictionary* syncProjectsPolicyList() const {
        return get(settings::syncProjectsPolicyList);
    }
    [[nodiscard]] std::int32_t policyControlsProjects() const {
        return get(settings::policyControlsProjects);
    }
    void setPolicyControlsProjects(std::int32_t value) {
        set(settings::policyControlsProjects, value);
    }
    [[nodiscard]] bool agentConfigLockedEnabled() const {
        return get(settings::agentConfigLockedEnabled);
    }
    [[nodiscard]] bool rebranderEnabled() const { return get(settings::rebranderEnabled); }
    [[nodiscard]] bool secureDelete() const { return get(settings::secureDelete); }
    [[nodiscard]] std::optional<std::string> convertTargets() const {
        return get(settings::convertTargets);
    }
    [[nodiscard]] std::optional<std::vector<std::string>> badgeHandledFileExtensions() const {
        return get(settings::badgeHandledFileExtensions);
    }
    bool setBadgeHandledFileExtensions(const std::vector<std::string>& value) {
        return set(settings::badgeHandledFileExtensions, value);
    }
    [[nodiscard]] std::int32_t badgeIntroductionShown() const {
        return get(settings::badgeIntroductionShown);
    }
    void setBadgeIntroductionShown(std::int32_t value) {
        set(settings::badgeIntroductionShown, value);
    }
    [[nodiscard]] std::int32_t backupWarningDays() const {
        return get(settings::backupWarningDays);
    }
    void setBackupWarningDays(std::int32_t value) { set(settings::backupWarningDays, value); }
    [[nodiscard]] bool localUpgradeTest() const { return get(settings::localUpgradeTest); }
    [[nodiscard]] std::int32_t maxBandwidthUpload() const {
        return get(settings::maxBandwidthUpload);
    }
    void setMaxBandwidthUpload(std::int32_t value) { set(settings::maxBandwidthUpload, value); }
    [[nodiscard]] std::int32_t maxBandwidthDownload() const {
        return get(settings::maxBandwidthDownload);
    }
    void setMaxBandwidthDownload(std::int32_t value) { set(settings::maxBandwidthDownload, value); }
    [[nodiscard]] std::int32_t tcpChunkSize() const { return get(settings::tcpChunkSize); }
    void setTcpChunkSize(std::int32_t value) { set(settings::tcpChunkSize, value); }
    [[nodiscard]] std::int32_t fileChunkSize() const { return get(settings::fileChunkSize); }
    void setFileChunkSize(std::int32_t value) { set(settings::fileChunkSize, value); }
    [[nodiscard]] bool printingEnabled() const { return get(settings::printingEnabled); }
    void setPrintingEnabled(bool value) { set(settings::printingEnabled, value); }
    [[nodiscard]] bool shareInfoDebug() const { return get(settings::shareInfoDebug); }
    void setShareInfoDebug(bool value) { set(settings::shareInfoDebug, value); }
    [[nodiscard]] bool inboundTraffic() const { return get(settings::inboundTraffic); }
    void setInboundTraffic(bool value) { set(settings::inboundTraffic, value); }
    [[nodiscard]] bool outboundTraffic() const { return get(settings::outboundTraffic); }
    void setOutboundTraffic(bool value) { set(settings::outboundTraffic, value); }
    [[nodiscard]] std::int32_t fullRescanInterval() const {
        return get(settings::fullRescanInterval);
    }
    void setFullRescanInterval(std::int32_t value) { set(settings::fullRescanInterval, value); }

    /// The data centre's name for the user; the cell id itself where it has none.
    [[nodiscard]] std::optional<std::string> cellName() const;
    /// The name under which the keychain has the password of web access.
    [[nodiscard]] std::string webAccessLabel() const;

    // The account's key is in the keychain under the label and the rcid. These wait for the
    // keychain and perhaps for the user.
    /// No file, no rcid or no key.
    [[nodiscard]] bool needSetup() const;
    [[nodiscard]] std::optional<std::string> readAuthenticationKey() const;
    /// Empty without an rcid, none without a key that can be read. The user is asked only where it
    /// does not go without; with `overwrite` the item is then made anew, so that it goes next time.
    [[nodiscard]] std::optional<std::string> readAuthenticationKeyWithOverwrite(
        bool overwrite) const;
    /// False for an empty key and without an rcid.
    [[nodiscard]] bool storeAuthenticationKey(const std::string& key) const;
    /// Removes the account's key and the password of its user.
    void cleanupKeychain() const;

 private:
    [[nodiscard]] bool get(const BooleanSetting& setting) const;
    [[nodiscard]] std::int32_t get(const IntegerSetting& setting) const;
    [[nodiscard]] std::int64_t get(const LongSetting& setting) const;
    [[nodiscard]] double get(const RealSetting& setting) const;
    [[nodiscard]] std::string get(const TextSetting& setting) const;
    [[nodiscard]] std::optional<std::string> get(const OptionalTextSetting& setting) const;
    [[nodiscard]] std::optional<std::vector<std::string>> get(const TextListSetting& setting) const;
    [[nodiscard]] const quelm::Array* get(const ArraySetting& setting) const;
    [[nodiscard]] const quelm::Dictionary* get(const DictionarySetting& setting) const;

    template <typename T>
    bool set(const Setting<T>& setting, std::type_identity_t<T> value) {
        _settings.set(setting.key, value);
        return true;
    }
    bool setText(const char* key, const std::string& value);
    bool set(const TextSetting& setting, const std::string& value);
    bool set(const OptionalTextSetting& setting, const std::string& value);
    bool set(const TextListSetting& setting, const std::vector<std::string>& value);

    [[nodiscard]] std::string computed(TextDefault fallback) const;
    [[nodiscard]] std::string defaultProjectFolder() const;

    quelm::Dictionary _settings;
    /// Of the file.
    std::optional<std::string> _settingsPath;
    std::string _password;
};

/// Looks up the names of this computer and its user, which stand in for settings that are missing,
/// once for this process. Without it the first getter that needs one does, and may wait for the
/// disk or the directory of users. Any thread.
void LookUpComputerDefaults();

}  // namespace orv

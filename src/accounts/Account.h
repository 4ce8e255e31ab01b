#pragma once

#include <string>

#include "accounts/FingerprintSettings.h"
#include "accounts/StorageFoldersInfo.h"
#include "accounts/StorageQuotaInfo.h"
#include "accounts/filters/FilterSettings.h"
#include "config/AgentSettings.h"
#include "config/StorageSettings.h"

namespace orv {

class AccountList;

/// What the files of an account's folder hold. A copy may be loaded on another thread.
struct AccountRecords {
    explicit AccountRecords(const std::string& folder);

    /// Reads every file of the folder; what cannot be read keeps its values. Waits for the locks.
    void load();

    orvAgentSettings agentSettings;
    orv_StorageSettings storageSettings;
    orv_FilterSettings filterSettings;
    orv_StorageFoldersInfo storageFoldersInfo;
    orv_StorageQuotaInfo storageQuotaInfo;
    orv_FingerprintSettings fingerprintSettings;
};

/// One configuration of the agent: a folder with its own settings and agent id. Main thread only.
class Account {
 public:
    /// With `loadSettings` the files are read at once; without, the account is not valid yet.
    Account(const std::string& folder, bool loadSettings);
    Account(const Account&) = delete;
    Account& operator=(const Account&) = delete;

    /// Takes label and server of the list's first account and stores them; nothing for the default
    /// account.
    void createSkelet(const AccountList& list);

    /// Reads every file of the folder; what cannot be read keeps its values. Waits for the locks.
    void loadSettings();
    /// Takes over what was loaded elsewhere, in place: what this lends stays where it is.
    void adoptSettings(AccountRecords records);
    /// As they were read or set last, without reading anything.
    [[nodiscard]] const AccountRecords& records() const { return records_; }
    [[nodiscard]] AccountRecords& records() { return records_; }

    [[nodiscard]] const std::string& accountFolderPath() const { return _accountFolderPath; }
    /// "1" for the default account.
    [[nodiscard]] const std::string& agentID() const { return _agentID; }
    /// Whether the settings have been loaded.
    [[nodiscard]] bool isValid() const { return _isValid; }
    [[nodiscard]] orvAgentSettings& agentSettings() { return records_.agentSettings; }
    [[nodiscard]] const orvAgentSettings& agentSettings() const { return records_.agentSettings; }
    [[nodiscard]] bool needSetup() const { return agentSettings().needSetup(); }

    // Each reads its file anew; fingerprintSettings reads the filters instead.
    [[nodiscard]] orv_StorageSettings& storageSettings();
    [[nodiscard]] orv_StorageFoldersInfo& storageFoldersInfo();
    [[nodiscard]] orv_StorageQuotaInfo& storageQuotaInfo();
    [[nodiscard]] orv_FilterSettings& filterSettings();
    [[nodiscard]] orv_FingerprintSettings& fingerprintSettings();

 private:
    std::string _accountFolderPath;
    std::string _agentID;
    AccountRecords records_;
    bool _isValid = false;
};

}  // namespace orv

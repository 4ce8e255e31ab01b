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

    /// Reads every file of the folder; what cannot be read keeps its values.
    void loadSettings();

    [[nodiscard]] const std::string& accountFolderPath() const { return _accountFolderPath; }
    /// "1" for the default account.
    [[nodiscard]] const std::string& agentID() const { return _agentID; }
    /// Whether the settings have been loaded.
    [[nodiscard]] bool isValid() const { return _isValid; }
    [[nodiscard]] orvAgentSettings& agentSettings() { return _agentSettings; }
    [[nodiscard]] const orvAgentSettings& agentSettings() const { return _agentSettings; }
    [[nodiscard]] bool needSetup() const { return _agentSettings.needSetup(); }

    // Each reads its file anew; fingerprintSettings reads the filters instead.
    [[nodiscard]] orv_StorageSettings& storageSettings();
    [[nodiscard]] orv_StorageFoldersInfo& storageFoldersInfo();
    [[nodiscard]] orv_StorageQuotaInfo& storageQuotaInfo();
    [[nodiscard]] orv_FilterSettings& filterSettings();
    [[nodiscard]] orv_FingerprintSettings& fingerprintSettings();

 private:
    std::string _accountFolderPath;
    std::string _agentID;
    orvAgentSettings _agentSettings;
    orv_StorageSettings _storageSettings;
    orv_FilterSettings _filterSettings;
    orv_StorageFoldersInfo _storageFoldersInfo;
    orv_StorageQuotaInfo _storageQuotaInfo;
    orv_FingerprintSettings _fingerprintSettings;
    bool _isValid = false;
};

}  // namespace orv

#include "accounts/Account.h"

#include "accounts/AccountList.h"
#include "config/AccountId.h"
#include "foundation/system/Log.h"

namespace orv {

Account::Account(const std::string& folder, bool loadNow)
    : _accountFolderPath(folder),
      _agentID(extractAgentID(folder)),
      _agentSettings(folder),
      _storageSettings(folder),
      _filterSettings(folder),
      _storageFoldersInfo(folder),
      _storageQuotaInfo(folder),
      _fingerprintSettings(folder) {
    if (loadNow) loadSettings();
}

void Account::createSkelet(const AccountList& list) {
    Account* const first = list.accountAtIndex(0);
    if (_agentID == "1" || !first) return;
    _agentSettings.setConfigLabel(first->agentSettings().configLabel());
    _agentSettings.setServerName(first->agentSettings().serverName());
    if (!_agentSettings.store()) {
        quelm::LogError(_accountFolderPath + " cannot be written: the new account has no label " +
                        "and server yet.");
    }
}

/// A file that is missing or unreadable leaves its record's values, whatever its load answers.
void Account::loadSettings() {
    static_cast<void>(_agentSettings.load());
    static_cast<void>(_storageSettings.load());
    static_cast<void>(_filterSettings.load());
    static_cast<void>(_storageFoldersInfo.load());
    static_cast<void>(_storageQuotaInfo.load());
    static_cast<void>(_fingerprintSettings.load());
    _isValid = true;
}

orv_StorageSettings& Account::storageSettings() {
    static_cast<void>(_storageSettings.load());
    return _storageSettings;
}

orv_StorageFoldersInfo& Account::storageFoldersInfo() {
    static_cast<void>(_storageFoldersInfo.load());
    return _storageFoldersInfo;
}

orv_StorageQuotaInfo& Account::storageQuotaInfo() {
    static_cast<void>(_storageQuotaInfo.load());
    return _storageQuotaInfo;
}

orv_FilterSettings& Account::filterSettings() {
    static_cast<void>(_filterSettings.load());
    return _filterSettings;
}

orv_FingerprintSettings& Account::fingerprintSettings() {
    static_cast<void>(_filterSettings.load());
    return _fingerprintSettings;
}

}  // namespace orv

#include "accounts/Account.h"

#include <utility>

#include "accounts/AccountList.h"
#include "config/AccountId.h"
#include "foundation/system/Log.h"

namespace orv {

AccountRecords::AccountRecords(const std::string& folder)
    : agentSettings(folder),
      storageSettings(folder),
      filterSettings(folder),
      storageFoldersInfo(folder),
      storageQuotaInfo(folder),
      fingerprintSettings(folder) {}

/// A file that is missing or unreadable leaves its record's values, whatever its load answers.
void AccountRecords::load() {
    static_cast<void>(agentSettings.load());
    static_cast<void>(storageSettings.load());
    static_cast<void>(filterSettings.load());
    static_cast<void>(storageFoldersInfo.load());
    static_cast<void>(storageQuotaInfo.load());
    static_cast<void>(fingerprintSettings.load());
}

Account::Account(const std::string& folder, bool loadNow)
    : _accountFolderPath(folder), _agentID(extractAgentID(folder)), records_(folder) {
    if (loadNow) loadSettings();
}

void Account::createSkelet(const AccountList& list) {
    Account* const first = list.accountAtIndex(0);
    if (_agentID == "1" || !first) return;
    agentSettings().setConfigLabel(first->agentSettings().configLabel());
    agentSettings().setServerName(first->agentSettings().serverName());
    if (!agentSettings().store()) {
        quelm::LogError(_accountFolderPath + " cannot be written: the new account has no label " +
                        "and server yet.");
    }
}

void Account::loadSettings() {
    records_.load();
    _isValid = true;
}

void Account::adoptSettings(AccountRecords records) {
    records_ = std::move(records);
    _isValid = true;
}

orv_StorageSettings& Account::storageSettings() {
    static_cast<void>(records_.storageSettings.load());
    return records_.storageSettings;
}

orv_StorageFoldersInfo& Account::storageFoldersInfo() {
    static_cast<void>(records_.storageFoldersInfo.load());
    return records_.storageFoldersInfo;
}

orv_StorageQuotaInfo& Account::storageQuotaInfo() {
    static_cast<void>(records_.storageQuotaInfo.load());
    return records_.storageQuotaInfo;
}

orv_FilterSettings& Account::filterSettings() {
    static_cast<void>(records_.filterSettings.load());
    return records_.filterSettings;
}

orv_FingerprintSettings& Account::fingerprintSettings() {
    static_cast<void>(records_.filterSettings.load());
    return records_.fingerprintSettings;
}

}  // namespace orv

#include <sys/stat.h>

#include "config/AgentSettings.h"
#include "config/KeychainInteraction.h"
#include "config/KeychainPasswords.h"
#include "foundation/files/Existence.h"
#include "foundation/system/Log.h"
#include "foundation/texts/Utf8.h"

// The settings record's part in the keychain.

namespace orv {

namespace {

bool readUnasked(const std::string& label, const std::string& account, std::string& key) {
    const KeychainInteractionOff off;
    return ReadPasswordData(label, account, key);
}

bool storeUnasked(const std::string& label, const std::string& account, const std::string& key) {
    const KeychainInteractionOff off;
    return StorePasswordData(label, account, key);
}

}  // namespace

bool orvAgentSettings::needSetup() const {
    return !_settingsPath || !quelm::Exists(*_settingsPath) || rcid().empty() ||
           readAuthenticationKey().value_or("").empty();
}

std::optional<std::string> orvAgentSettings::readAuthenticationKey() const {
    return readAuthenticationKeyWithOverwrite(true);
}

std::optional<std::string> orvAgentSettings::readAuthenticationKeyWithOverwrite(
    bool overwrite) const {
    const std::string label = configLabel();
    const std::string account = rcid();
    if (account.empty()) return "";
    std::string key;
    const bool unasked = readUnasked(label, account, key);
    if (!unasked && !ReadPasswordData(label, account, key)) return std::nullopt;
    // other bytes are nobody's key and stay where they are
    if (!quelm::IsValidUtf8(key)) return std::nullopt;
    if (unasked || !overwrite || key.empty() || !DeletePasswordData(label, account)) return key;
    if (!storeAuthenticationKey(key)) {
        quelm::LogError("The key of \"" + label + "\" was taken out of the keychain and could " +
                        "not be put back. Sign in again to store it.");
    }
    return key;
}

bool orvAgentSettings::storeAuthenticationKey(const std::string& key) const {
    const std::string label = configLabel();
    const std::string account = rcid();
    if (key.empty() || account.empty()) return false;
    if (storeUnasked(label, account, key)) return true;
    static_cast<void>(DeletePasswordData(label, account));
    return StorePasswordData(label, account, key);
}

void orvAgentSettings::cleanupKeychain() const {
    static_cast<void>(DeletePasswordData(configLabel(), userName()));
    if (!rcid().empty()) static_cast<void>(DeletePasswordData(configLabel(), rcid()));
}

}  // namespace orv

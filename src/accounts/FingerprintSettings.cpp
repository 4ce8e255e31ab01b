#include "accounts/FingerprintSettings.h"

#include "agentlink/AgentNotifications.h"
#include "agentlink/AgentVocabulary.h"
#include "config/AccountId.h"
#include "config/Locations.h"
#include "config/PropertyFiles.h"
#include "foundation/system/Log.h"

namespace orv {

orv_FingerprintSettings::orv_FingerprintSettings(const std::string& folder)
    : path_(folder.empty() ? "" : folder + "/" + files::fingerPrints) {}

bool orv_FingerprintSettings::load() {
    return !path_.empty() && loadFromSpecificPath(path_);
}

bool orv_FingerprintSettings::loadFromSpecificPath(const std::string& path) {
    auto file = LoadArrayFromFile(path);
    if (!file) return false;
    auto* const list = file->asArray();
    if (!list) {
        quelm::LogError(path + " holds no list of fingerprints and is not used. Remove it.");
        return false;
    }
    settings = std::move(*list);
    return true;
}

bool orv_FingerprintSettings::store() const {
    return !path_.empty() && storeToSpecificPath(path_);
}

bool orv_FingerprintSettings::storeToSpecificPath(const std::string& path) const {
    if (!StoreArrayToFile(path, settings)) return false;
    NotifyAgentSettingsChanged(extractAgentID(path), HintFingerprints);
    return true;
}

}  // namespace orv

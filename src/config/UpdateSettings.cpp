#include "config/UpdateSettings.h"

#include "config/ConfigurationPath.h"
#include "config/PropertyAccess.h"
#include "config/PropertyFiles.h"
#include "foundation/propertylist/PropertyList.h"

namespace orv {

struct orvUpdateSettings::Server {
    const char* key;
    std::string orvUpdateSettings::*name;
    /// Where a file has none.
    std::string Deployment::*fallback;
};

const orvUpdateSettings::Server orvUpdateSettings::servers_[] = {
    {"web_server", &orvUpdateSettings::m_webServerName, &Deployment::webServer},
    {"update_server", &orvUpdateSettings::m_updateServerName, &Deployment::updateServer},
    {"api_server", &orvUpdateSettings::m_apiServerName, &Deployment::apiServer},
};

orvUpdateSettings orvUpdateSettings::settings() {
    orvUpdateSettings settings;
    settings.loadSettings();
    return settings;
}

bool orvUpdateSettings::loadSettings() {
    return loadSettingsFromFile(GetConfigurationNsPath(defaultFilename));
}

bool orvUpdateSettings::loadSettingsFromFile(const std::string& path) {
    const auto list = quelm::ReadPropertyListFile(path, quelm::FileLock::None);
    const auto* values = list.value ? list.value->asDictionary() : nullptr;
    if (!values) return false;
    for (const auto& [key, name, fallback] : servers_) {
        this->*name = GetStringPropertyWithDefault(*values, key, CurrentDeployment().*fallback);
    }
    return true;
}

bool orvUpdateSettings::store() const {
    return storeToSpecificPath(GetConfigurationNsPath(defaultFilename));
}

bool orvUpdateSettings::storeToSpecificPath(const std::string& path) const {
    quelm::Dictionary names;
    for (const auto& server : servers_) {
        if (!SetStringProperty(names, server.key, this->*server.name)) return false;
    }
    return ChangePropertiesInFile(path, names);
}

}  // namespace orv

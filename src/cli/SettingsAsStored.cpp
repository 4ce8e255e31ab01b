#include "cli/SettingsAsStored.h"

#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/files/Existence.h"

namespace orv::cli {

orvAgentSettings SettingsAsStored() {
    const std::string folder = GetConfigurationPath();
    orvAgentSettings settings(folder);
    if (quelm::Exists(folder + "/" + files::userInfo)) settings.load();
    return settings;
}

}  // namespace orv::cli

#pragma once

#include <string>
#include <utility>

#include "config/Deployment.h"
#include "config/Locations.h"

namespace orv {

/// The servers of "server_info.plist", without a scheme.
class orvUpdateSettings {
 public:
    static constexpr const char* defaultFilename = files::serverInfo;

    /// The deployment's servers; until a file is read updates come from the web server.
    orvUpdateSettings() = default;
    /// What the active account's file has.
    [[nodiscard]] static orvUpdateSettings settings();

    /// False when the file cannot be read, with everything as it was; a server that it does not
    /// name becomes the deployment's. Waits for no lock.
    bool loadSettings();
    bool loadSettingsFromFile(const std::string& path);
    /// Merges the servers into the file.
    [[nodiscard]] bool store() const;
    [[nodiscard]] bool storeToSpecificPath(const std::string& path) const;

    [[nodiscard]] const std::string& webServerName() const { return m_webServerName; }
    [[nodiscard]] const std::string& updateServerName() const { return m_updateServerName; }
    [[nodiscard]] const std::string& apiServerName() const { return m_apiServerName; }
    void setWebServerName(std::string name) { m_webServerName = std::move(name); }
    void setUpdateServerName(std::string name) { m_updateServerName = std::move(name); }
    void setApiServerName(std::string name) { m_apiServerName = std::move(name); }

 private:
    struct Server;
    static const Server servers_[];

    std::string m_webServerName = CurrentDeployment().webServer;
    std::string m_updateServerName = CurrentDeployment().webServer;
    std::string m_apiServerName = CurrentDeployment().apiServer;
};

}  // namespace orv

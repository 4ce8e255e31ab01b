#include "config/ConfigurationPath.h"

#include <algorithm>
#include <cstring>
#include <fmt/format.h>
#include <mutex>
#include <sys/stat.h>
#include <utility>
#include <vector>

#include "config/AccountId.h"
#include "config/AgentSettingsTable.h"
#include "config/Locations.h"
#include "config/PropertyAccess.h"
#include "config/PropertyFiles.h"
#include "config/UpdateSettings.h"
#include "foundation/files/Existence.h"
#include "foundation/files/Filenames.h"
#include "foundation/files/Folders.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/Log.h"

namespace orv {

std::string AgentID;

namespace {

std::mutex basePathMutex;  // for what follows
std::string ConfigBasePath;

void seedAccountFolder(const quelm::Array& accounts, std::size_t row, const std::string& label,
                       const std::string& folder) {
    if (quelm::Exists(folder + "/" + files::userInfo)) return;
    const auto server = GetStringPropertyForRowInArray(accounts, row, "server_address");
    const auto web = GetStringPropertyForRowInArray(accounts, row, "web_address");
    const auto update = GetStringPropertyForRowInArray(accounts, row, "update_address");
    const auto api = GetStringPropertyForRowInArray(accounts, row, "api_address");
    if (server && web && update && api) {
        CreateUserInfo(folder, label, *server, *web, *update, *api);
    }
}

/// The folder of the first row that is marked active; none without one and for the account that
/// uses the default folder.
std::optional<std::string> activeAccountFolder() {
    const auto list = LoadArrayFromFile(quelm::ExpandTildeInPath(locations::accountList));
    const quelm::Array* accounts = list ? list->asArray() : nullptr;
    if (accounts == nullptr) return std::nullopt;

    std::size_t row = 0;
    while (row < accounts->size() &&
           !GetBoolPropertyWithDefaultForRowInArray(*accounts, row, "active_config", false)) {
        ++row;
    }
    if (row == accounts->size()) return std::nullopt;
    const auto label = GetStringPropertyForRowInArray(*accounts, row, "label_of_config");
    if (label == "Default") return std::nullopt;
    // it names a folder among the accounts' folders and must not lead out of them
    if (!label || !quelm::IsPlainFilename(*label)) {
        quelm::LogWarning(
            fmt::format("the active account's label \"{}\" names no folder; the "
                        "default configuration is used",
                        label.value_or("")));
        return std::nullopt;
    }
    std::string folder = quelm::ExpandTildeInPath(locations::accountFolders) + *label;
    seedAccountFolder(*accounts, row, *label, folder);
    return folder;
}

std::string knownBasePath() {
    const std::lock_guard lock(basePathMutex);
    return ConfigBasePath;
}

/// Resolves without the lock, for which the main thread may wait.
std::string basePath() {
    std::string path = knownBasePath();
    if (!path.empty()) return path;
    std::string resolved = ResolveConfigBasePath();
    const std::lock_guard lock(basePathMutex);
    if (ConfigBasePath.empty()) ConfigBasePath = std::move(resolved);
    return ConfigBasePath;
}

}  // namespace

std::string ResolveConfigBasePath() {
    std::string path =
        activeAccountFolder().value_or(quelm::ExpandTildeInPath(locations::defaultConfiguration));
    if (!AgentID.empty() && AgentID != "1")
        path.append("/").append(accountFolderPrefix).append(AgentID);
    return path;
}

void SetConfigBasePath(const std::string& path) {
    const std::lock_guard lock(basePathMutex);
    ConfigBasePath = path;
}
void ClearConfigBasePath() {
    SetConfigBasePath({});
}

std::string GetConfigurationPath(const char* fileName) {
    return fileName != nullptr ? basePath() + "/" + fileName : basePath();
}

std::string& GetConfigurationPath(std::string& path, const char* fileName) {
    path = GetConfigurationPath(fileName);
    return path;
}

char* GetConfigurationPath(char* buffer, const char* fileName, std::uint32_t size) {
    const std::string path = GetConfigurationPath(fileName);
    std::memcpy(buffer, path.c_str(), std::min<std::size_t>(path.size() + 1, size));
    return buffer;
}

std::string GetConfigurationNsPath(const std::optional<std::string>& fileName) {
    constexpr std::uint32_t size = 1024;
    std::vector<char> buffer(size);
    const bool isNamed = fileName && !fileName->empty();
    GetConfigurationPath(buffer.data(), isNamed ? fileName->c_str() : nullptr, size);
    buffer.back() = '\0';
    return buffer.data();
}

void CreateUserInfo(const std::string& folder, const std::string& label, const std::string& server,
                    const std::string& webServer, const std::string& updateServer,
                    const std::string& apiServer) {
    if (quelm::os::CreateRootFolder(folder) != quelm::os::EStatusCode::SUCCESS) return;

    quelm::Dictionary user = CreateEmptyProperties();
    SetStringProperty(user, settings::configLabel.key, label);
    SetStringProperty(user, settings::serverName.key, server);
    StorePropertiesToFile(folder + "/" + files::userInfo, user);

    orvUpdateSettings servers;
    servers.setWebServerName(webServer);
    servers.setUpdateServerName(updateServer);
    servers.setApiServerName(apiServer);
    const std::string path = folder + "/" + files::serverInfo;
    if (!servers.storeToSpecificPath(path)) {
        quelm::LogError(path + " cannot be written: the account uses the built-in servers.");
    }
}

}  // namespace orv

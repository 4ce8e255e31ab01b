#include "config/PersistentFlag.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "config/AccountId.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/files/Existence.h"
#include "foundation/files/Filenames.h"
#include "foundation/paths/Paths.h"
#include "platform/FileDescriptor.h"

namespace orv {

namespace {

using Path = std::optional<std::string>;

Path globalPath(const std::string& flag) {
    if (!quelm::IsPlainFilename(flag)) return std::nullopt;
    return quelm::ExpandTildeInPath(locations::preferences) + flag;
}

/// The base path without the folder of the further account that this process may serve.
std::string defaultAccountFolder() {
    std::string base = GetConfigurationPath();
    if (quelm::GetLastPathComponent(base).starts_with(accountFolderPrefix)) {
        base = quelm::RemoveLastPathComponent(base);
    }
    return base;
}

bool exists(const Path& path) {
    return path && quelm::Exists(*path);
}

/// A file of that name that is there already keeps what it holds.
bool create(const Path& path) {
    constexpr int flags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    return path && platform::FileDescriptor(open(path->c_str(), flags, 0700));
}

}  // namespace

bool orv_PersistentFlag::isSet(const std::string& flag, const AgentId& agentId) {
    return exists(createPathForAgentID(agentId, flag));
}

bool orv_PersistentFlag::set(const std::string& flag, const AgentId& agentId) {
    return create(createPathForAgentID(agentId, flag));
}

bool orv_PersistentFlag::remove(const std::string& flag, const AgentId& agentId) {
    const Path path = createPathForAgentID(agentId, flag);
    return path && unlink(path->c_str()) == 0;
}

bool orv_PersistentFlag::getAndRemove(const std::string& flag, const AgentId& agentId) {
    return remove(flag, agentId) || isSet(flag, agentId);
}

bool orv_PersistentFlag::isSetGloballyForUser(const std::string& flag) {
    return exists(globalPath(flag));
}

bool orv_PersistentFlag::setGloballyForUser(const std::string& flag) {
    return create(globalPath(flag));
}

Path orv_PersistentFlag::createPathForAgentID(const AgentId& agentId, const std::string& flagName) {
    const std::string id = agentId.value_or("");
    const bool isDefault = id.empty() || IsDefaultAccountId(id);
    if (!quelm::IsPlainFilename(flagName) || (!isDefault && !IsAccountId(id))) return std::nullopt;
    std::string folder = defaultAccountFolder();
    if (!isDefault) folder.append("/").append(accountFolderPrefix).append(id);
    return folder.append("/").append(flagName);
}

}  // namespace orv

#include "config/StorageSettings.h"

#include <cerrno>
#include <fmt/format.h>
#include <sys/stat.h>
#include <utility>

#include "config/Locations.h"
#include "config/PropertyFiles.h"
#include "config/TopLevelPaths.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

/// Whether there is something that storing would replace.
bool hasContent(const std::string& path) {
    struct stat info = {};
    return stat(path.c_str(), &info) == 0 ? info.st_size > 0 : errno != ENOENT;
}

}  // namespace

std::optional<quelm::Value> LoadStorageConfiguration(const std::string& path) {
    auto rows = LoadArrayFromFile(path);
    return rows && rows->asArray() ? std::move(rows) : std::nullopt;
}

bool StoreStorageConfiguration(const std::string& path, const quelm::Value& rows) {
    return StoreArrayToFile(path, rows);
}

bool orv_StorageSettings::load() {
    const std::string path = _settingsPath + "/" + files::storageInfo;
    if (loadFromSpecificPath(path)) return true;
    // what was read before a file broke is newer than the older list
    if (isKnown_ && hasContent(path)) return false;
    return loadOldShareInfoFromFile(_settingsPath + "/" + files::shareInfo);
}

bool orv_StorageSettings::loadFromSpecificPath(const std::string& path) {
    auto rows = LoadStorageConfiguration(path);
    if (!rows) return false;
    _settings = std::move(*rows);
    isKnown_ = true;
    return true;
}

bool orv_StorageSettings::loadOldShareInfoFromFile(const std::string& path) {
    const auto old = LoadStorageConfiguration(path);
    if (!old) return false;
    quelm::Array paths;
    for (const quelm::Value& row : *old->asArray()) {
        const auto* cells = row.asArray();
        if (cells && cells->size() >= 2) paths.push_back((*cells)[1]);
    }
    updateWithPolicyPaths(paths);
    return true;
}

bool orv_StorageSettings::store() const {
    return storeToSpecificPath(_settingsPath + "/" + files::storageInfo);
}

bool orv_StorageSettings::storeToSpecificPath(const std::string& path) const {
    if (!isKnown_ && hasContent(path)) {
        quelm::LogError(fmt::format(
            "{} was not read, so the selection in it stays as it is; move the file away to begin "
            "with an empty one",
            path));
        return false;
    }
    return StoreStorageConfiguration(path, _settings);
}

void orv_StorageSettings::setPathsAndFlags(quelm::Array rows) {
    _settings = std::move(rows);
    isKnown_ = true;
}

std::vector<std::string> orv_StorageSettings::topLevelPaths() const {
    return TopLevelPaths(pathsAndFlags());
}

void orv_StorageSettings::removeTopLevelPath(std::string_view path) {
    RemoveTopLevelPath(*_settings.asArray(), path);
}

void orv_StorageSettings::updateWithPolicyPaths(const quelm::Array& paths) {
    quelm::Array rows;
    for (const quelm::Value& path : paths) {
        if (path.asString()) rows.emplace_back(quelm::Array{path, true});
    }
    setPathsAndFlags(std::move(rows));
}

}  // namespace orv

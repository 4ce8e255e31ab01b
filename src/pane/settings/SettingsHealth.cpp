#include "pane/settings/SettingsHealth.h"

#include <cerrno>
#include <filesystem>
#include <unistd.h>

#include "config/Locations.h"
#include "foundation/files/Existence.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/LocalizedString.h"

namespace orv {

namespace {

constexpr const char* checkedFiles[] = {files::userInfo, files::storageInfo, files::filterInfo};

/// An empty file counts as one without settings.
bool isUnreadable(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error) return quelm::IsNameTaken(path);
    if (::access(path.c_str(), R_OK) != 0) return true;
    return size > 0 && !quelm::ReadPropertyListFile(path).value;
}

/// The folder, or the nearest one above it that is there, when nothing can be made in it.
std::string readOnlyPlace(std::string folder) {
    while (folder.size() > 1 && !quelm::Exists(folder))
        folder = std::filesystem::path(folder).parent_path().string();
    return ::access(folder.c_str(), W_OK) == 0 ? std::string() : folder;
}

}  // namespace

SettingsHealth CheckSettings(const std::string& folder) {
    SettingsHealth health{.unreadable = {}, .readOnly = readOnlyPlace(folder)};
    for (const char* name : checkedFiles) {
        if (isUnreadable(folder + "/" + name)) health.unreadable.emplace_back(name);
    }
    return health;
}

std::string SettingsNotice(const SettingsHealth& health, bool isSlow) {
    if (!health.unreadable.empty()) {
        std::string names;
        for (const std::string& name : health.unreadable)
            names += names.empty() ? name : ", " + name;
        return quelm::FormatLocalizedString(
            "PrefPane.Unreadable",
            "%@ cannot be read. The settings that were read last stay in effect; check the file's "
            "permissions, or restore it from a backup.",
            {names});
    }
    if (!health.readOnly.empty()) {
        return quelm::FormatLocalizedString(
            "PrefPane.ReadOnly",
            "Settings cannot be changed: %@ is read-only for you. Check its permissions and "
            "whether the disk is full or mounted read-only.",
            {health.readOnly});
    }
    if (isSlow) {
        return quelm::GetLocalizedString(
            "PrefPane.SettingsInUse",
            "Another program is using the settings. What you changed is stored as soon as it is "
            "done.");
    }
    return {};
}

}  // namespace orv

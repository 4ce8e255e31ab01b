#include "accounts/StorageFoldersInfo.h"

#include <algorithm>

#include "accounts/AccountXml.h"
#include "config/Locations.h"
#include "foundation/paths/PathPrefix.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/Log.h"
#include "foundation/system/Saturating.h"
#include "foundation/xml/XmlDocument.h"
#include "foundation/xml/XmlElements.h"

namespace orv {

orv_StorageFolderStatus::orv_StorageFolderStatus(std::string_view path, std::int64_t total,
                                                 std::int64_t stored)
    : _path(quelm::StandardizePath(path)), _total(total), _stored(stored) {}

bool orv_StorageFolderStatus::isEqual(const orv_StorageFolderStatus& other) const {
    return _total == other._total && _stored == other._stored && IsSamePath(_path, other._path);
}

orv_StorageFoldersInfo::orv_StorageFoldersInfo(const std::string& folder)
    : _settingsPath(folder + "/" + files::storageFolders) {}

bool orv_StorageFoldersInfo::load() {
    loadAtPath(_settingsPath);
    return false;
}

bool orv_StorageFoldersInfo::loadAtPath(const std::string& path) {
    const auto data = ReadAccountXml(path);
    return data && loadData(*data);
}

bool orv_StorageFoldersInfo::loadData(std::string_view data) {
    const auto parsed = quelm::ParseXml(data);
    const auto stores =
        parsed.document ? quelm::FindElement(*parsed.document, "stores") : pugi::xml_node();
    if (!stores) {
        quelm::LogError("Cannot load storage_folders info: " +
                        (parsed.document ? "there is no element \"stores\"" : parsed.error));
        return false;
    }
    std::vector<orv_StorageFolderStatus> folders;
    _total = 0;
    _stored = 0;
    for (const pugi::xml_node& folder : stores.children()) {
        const auto total = folder.child("total");
        const auto stored = folder.child("stored");
        const auto path = folder.child("path");
        if (!total || !stored || !path) continue;
        const auto& added = folders.emplace_back(quelm::TextOf(path), quelm::IntegerOf(total),
                                                 quelm::IntegerOf(stored));
        _total = quelm::SaturatingSum(_total, added.total());
        _stored = quelm::SaturatingSum(_stored, added.stored());
    }
    _folderList = std::move(folders);
    return true;
}

const orv_StorageFolderStatus* orv_StorageFoldersInfo::findInfoForPath(
    std::string_view path) const {
    const std::string wanted = quelm::StandardizePath(path);
    auto found = std::ranges::find(_folderList, wanted, &orv_StorageFolderStatus::path);
    if (found == _folderList.end()) {
        found = std::ranges::find_if(_folderList, [&wanted](const auto& folder) {
            return IsSamePath(folder.path(), wanted);
        });
    }
    return found != _folderList.end() ? &*found : nullptr;
}

}  // namespace orv

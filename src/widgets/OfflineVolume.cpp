#include "widgets/OfflineVolume.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "config/VolumeFolders.h"

namespace orv {

namespace {

bool isMissing(std::string_view path) {
    std::error_code error;
    return std::filesystem::status(path, error).type() == std::filesystem::file_type::not_found;
}

}  // namespace

bool IsPathOffline(const std::string& path) {
    const std::string_view folder = FolderOfVolumes(path);
    const auto name = path.find_first_not_of('/', folder.size());
    if (folder.empty() || name == path.npos) return false;
    return isMissing(std::string_view(path).substr(0, path.find('/', name)));
}

}  // namespace orv

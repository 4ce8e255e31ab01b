#include "widgets/OfflineVolume.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "config/Locations.h"

namespace orv {

namespace {

std::vector<std::string_view> componentsOf(std::string_view path) {
    std::vector<std::string_view> components;
    while (!path.empty()) {
        const auto component = path.substr(0, path.find('/'));
        if (!component.empty()) components.push_back(component);
        path.remove_prefix(std::min(component.size() + 1, path.size()));
    }
    return components;
}

/// The volume that would hold the path; empty when that is not below `volumeFolder`.
std::string volumeRoot(const std::vector<std::string_view>& path, std::string_view volumeFolder) {
    const auto above = componentsOf(volumeFolder);
    const auto matches = [](std::string_view pattern, std::string_view component) {
        return pattern == "*" || pattern == component;
    };
    if (path.size() <= above.size() ||
        !std::equal(above.begin(), above.end(), path.begin(), matches)) {
        return {};
    }
    std::string root;
    for (std::size_t i = 0; i <= above.size(); ++i)
        root.append("/").append(path[i]);
    return root;
}

bool isMissing(const std::string& path) {
    std::error_code error;
    return std::filesystem::status(path, error).type() == std::filesystem::file_type::not_found;
}

}  // namespace

bool IsPathOffline(const std::string& path) {
    if (!path.starts_with('/')) return false;
    const auto components = componentsOf(path);
    return std::ranges::any_of(locations::volumeFolders, [&](std::string_view volumeFolder) {
        const std::string root = volumeRoot(components, volumeFolder);
        return !root.empty() && isMissing(root);
    });
}

}  // namespace orv

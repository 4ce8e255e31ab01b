#include "foundation/paths/PathClassification.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fmt/format.h>
#include <sys/stat.h>

#include "foundation/files/Existence.h"
#include "foundation/paths/PathPrefix.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/Log.h"
#include "platform/Services.h"

namespace orv {

namespace {

// taken as plain text: "/SystemX" counts
constexpr std::array<std::string_view, 5> systemPrefixes = {
    "/Applications", "/Network/Applications", "/Library", "/Network/Library", "/System",
};
constexpr std::array<std::string_view, 2> systemPrefixesInHome = {"/Applications", "/Library"};

// taken component by component
constexpr std::array<std::string_view, 12> systemFolders = {
    "/usr", "/etc",  "/boot", "/dev",   "/proc",  "/sys",
    "/bin", "/sbin", "/lib",  "/lib32", "/lib64", "/libx32",
};

/// Empty when HOME is unset.
std::string_view homeFolder() {
    const char* home = std::getenv("HOME");
    return home != nullptr ? home : "";
}

}  // namespace

bool IsSystemPath(std::string_view path) {
    const auto beginsPath = [&](std::string_view prefix) { return path.starts_with(prefix); };
    const auto holdsPath = [&](std::string_view folder) {
        return quelm::StartsWithPath(path, folder);
    };
    if (path == "/" || std::ranges::any_of(systemPrefixes, beginsPath) ||
        std::ranges::any_of(systemFolders, holdsPath)) {
        return true;
    }
    const std::string_view home = homeFolder();
    if (!path.starts_with(home)) return false;
    path.remove_prefix(home.size());
    return std::ranges::any_of(systemPrefixesInHome, beginsPath);
}

namespace {

/// Empty when the path has no parent.
void makeParent(std::string& path) {
    const auto parent = quelm::RemoveLastPathComponent(quelm::RemoveLastSlashFromPath(path));
    const bool isRoot = parent.empty() && path.starts_with('/') && path.size() > 1;
    // in place: a long path is not copied for each of its components
    path.resize(isRoot ? 1 : parent.size());
}

bool isOnLocalVolume(const std::string& path) {
    auto* volumes = platform::ProcessServices().volumes.get();
    const auto lookup = volumes != nullptr
                            ? volumes->volumeOf(path)
                            : platform::Volumes::Lookup{{}, "there is no volume service"};
    if (lookup.volume) return lookup.volume->local;
    quelm::LogError(fmt::format("getting resource for volume URL: {}", lookup.error));
    return false;
}

}  // namespace

bool isLocalPath(std::string path) {
    while (!path.empty() && !quelm::Exists(path))
        makeParent(path);
    return !path.empty() && isOnLocalVolume(path);
}

bool isInsideUserHome(std::string_view path) {
    const std::string_view home = homeFolder();
    return !home.empty() && path.starts_with(home) && path.size() != home.size();
}

unsigned GetVolumeType(const std::string& deviceName) {
    if (!deviceName.starts_with("/dev/")) return VOLUME_NETWORK;
    auto* volumes = platform::ProcessServices().volumes.get();
    const auto disk = volumes != nullptr ? volumes->diskDescription(deviceName) : std::nullopt;
    if (!disk) return VOLUME_UNKNOWN;
    if (disk->network.value_or(false)) return VOLUME_NETWORK;
    if (!disk->mediaWritable.value_or(false)) return VOLUME_READ_ONLY;
    return disk->internal.value_or(true) ? VOLUME_INTERNAL : VOLUME_EXTERNAL;
}

}  // namespace orv

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orv {

/// Kinds of volumes that the user allows beside internal ones, as bits.
enum EAllowedVolumes : std::uint32_t {
    ALLOW_READ_ONLY_VOLUMES = 1,
    ALLOW_NETWORK_VOLUMES = 2,
    ALLOW_EXTERNAL_VOLUMES = 4,
    ALLOW_ALL_VOLUMES = 7,
};

class orvAgentSettings;

/// What the account allows, as such bits.
[[nodiscard]] std::uint32_t AllowedVolumes(const orvAgentSettings& settings);

// A volume that cannot be asked hides nothing. Any thread; none waits for a slow volume.

/// The mount points of the volumes that are not allowed; never "/".
[[nodiscard]] std::vector<std::string> GetExcludedVolumes(std::uint32_t mask);

/// Whether the volume that holds the path is not allowed; one of unknown kind is.
[[nodiscard]] bool IsVolumeExcluded(std::uint32_t mask, const std::string& path);

/// The paths on allowed volumes, in order. Unless everything is allowed, paths on a volume of
/// unknown kind are dropped.
[[nodiscard]] std::vector<std::string> FilterAllowedVolumePaths(
    std::uint32_t mask, const std::vector<std::string>& paths);

}  // namespace orv

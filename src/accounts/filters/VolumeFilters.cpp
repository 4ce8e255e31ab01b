#include "accounts/filters/VolumeFilters.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>

#include "config/AgentSettings.h"
#include "foundation/paths/PathClassification.h"
#include "platform/Services.h"

namespace orv {

namespace {

/// The bit that allows a kind; 0 for one that needs none.
std::uint32_t allowingBit(unsigned kind) {
    switch (kind) {
        case VOLUME_EXTERNAL:
            return ALLOW_EXTERNAL_VOLUMES;
        case VOLUME_NETWORK:
            return ALLOW_NETWORK_VOLUMES;
        case VOLUME_READ_ONLY:
            return ALLOW_READ_ONLY_VOLUMES;
        default:
            return 0;
    }
}

bool isExcluded(std::uint32_t mask, unsigned kind) {
    const std::uint32_t bit = allowingBit(kind);
    return bit != 0 && (mask & bit) == 0;
}

/// Kinds by device, each asked once.
class VolumeKinds {
 public:
    unsigned of(const std::string& device) {
        const auto [entry, isNew] = kinds_.try_emplace(device, VOLUME_UNKNOWN);
        if (isNew) entry->second = GetVolumeType(device);
        return entry->second;
    }

 private:
    std::map<std::string, unsigned> kinds_;
};

std::optional<platform::Volume> volumeOf(const std::string& path) {
    auto* const volumes = platform::ProcessServices().volumes.get();
    return volumes ? volumes->volumeOf(path).volume : std::nullopt;
}

}  // namespace

std::uint32_t AllowedVolumes(const orvAgentSettings& settings) {
    std::uint32_t mask = 0;
    if (settings.allowReadonlyDriveShares()) mask |= ALLOW_READ_ONLY_VOLUMES;
    if (settings.allowNetworkDriveShares()) mask |= ALLOW_NETWORK_VOLUMES;
    if (settings.allowExternalDriveShares()) mask |= ALLOW_EXTERNAL_VOLUMES;
    return mask;
}

std::vector<std::string> GetExcludedVolumes(std::uint32_t mask) {
    std::vector<std::string> excluded;
    auto* const volumes = platform::ProcessServices().volumes.get();
    if (mask == ALLOW_ALL_VOLUMES || !volumes) return excluded;
    VolumeKinds kinds;
    for (const auto& volume : volumes->mounted()) {
        if (volume.mountPoint != "/" && isExcluded(mask, kinds.of(volume.device))) {
            excluded.push_back(volume.mountPoint);
        }
    }
    return excluded;
}

bool IsVolumeExcluded(std::uint32_t mask, const std::string& path) {
    const auto volume = volumeOf(path);
    return volume && isExcluded(mask, GetVolumeType(volume->device));
}

std::vector<std::string> FilterAllowedVolumePaths(std::uint32_t mask,
                                                  const std::vector<std::string>& paths) {
    if (mask == ALLOW_ALL_VOLUMES) return paths;
    VolumeKinds kinds;
    std::vector<std::string> allowed;
    std::ranges::copy_if(paths, std::back_inserter(allowed), [&](const std::string& path) {
        const auto volume = volumeOf(path);
        if (!volume) return true;
        const unsigned kind = kinds.of(volume->device);
        return kind != VOLUME_UNKNOWN && !isExcluded(mask, kind);
    });
    return allowed;
}

}  // namespace orv

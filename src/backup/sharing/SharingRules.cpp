#include "backup/sharing/SharingRules.h"

#include <cstdint>

#include "accounts/filters/FilterSettings.h"
#include "accounts/filters/VolumeFilters.h"
#include "foundation/paths/Paths.h"

namespace orv {

namespace {

std::uint32_t volumesBackedUp(const orvAgentSettings& settings) {
    std::uint32_t mask = 0;
    if (settings.allowReadonlyDriveShares()) mask |= ALLOW_READ_ONLY_VOLUMES;
    if (settings.allowNetworkDriveShares()) mask |= ALLOW_NETWORK_VOLUMES;
    if (settings.allowExternalDriveShares()) mask |= ALLOW_EXTERNAL_VOLUMES;
    return mask;
}

}  // namespace

TreeRules RulesOfAccount(const orvAgentSettings& settings) {
    TreeRules rules;
    rules.excludedVolumes = GetExcludedVolumes(volumesBackedUp(settings));
    if (settings.syncEnabled()) {
        rules.excludedPath =
            quelm::GetAbsolutePath(quelm::StandardizePath(settings.masterProjectFolder()));
    }
    rules.excludedFolders = orv_FilterSettings::excludedFolderPatterns();
    return rules;
}

}  // namespace orv

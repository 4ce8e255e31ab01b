#include "backup/sharing/SharingRules.h"

#include "accounts/filters/FilterSettings.h"
#include "accounts/filters/VolumeFilters.h"
#include "foundation/paths/Paths.h"

namespace orv {

TreeRules RulesOfAccount(const orvAgentSettings& settings) {
    TreeRules rules;
    rules.excludedVolumes = GetExcludedVolumes(AllowedVolumes(settings));
    if (settings.syncEnabled()) {
        rules.excludedPath =
            quelm::GetAbsolutePath(quelm::StandardizePath(settings.masterProjectFolder()));
    }
    rules.excludedFolders = orv_FilterSettings::excludedFolderPatterns();
    return rules;
}

}  // namespace orv

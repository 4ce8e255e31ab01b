#include "accounts/FolderStatusText.h"

#include <algorithm>
#include <fmt/format.h>

#include "foundation/system/LocalizedString.h"
#include "widgets/SizeText.h"

namespace orv {

namespace {

using quelm::GetLocalizedString;

std::string percentage(const orv_StorageFolderStatus* record) {
    const double total = record ? static_cast<double>(record->total()) : 0;
    const double stored = record ? static_cast<double>(record->stored()) : 0;
    return fmt::format("{:.0f}% {}", stored / std::max(total / 100, 1.0),
                       GetLocalizedString("PrefPane.BackedUp", "Backed Up"));
}

}  // namespace

std::string FolderStatusText(const FolderState& state) {
    if (state.excluded) {
        return GetLocalizedString("PrefPane.BackingUpDisabled", "Excluded (by policy)");
    }
    if (!state.exists) {
        return state.offline ? GetLocalizedString("PrefPane.VolumeOffline", "Volume offline")
                             : GetLocalizedString("PrefPane.FolderMissing", "Folder is missing");
    }
    if (state.record && state.record->isBackedUp()) {
        return quelm::FormatLocalizedString("PrefPane.FullyBackedUp", "Fully Backed Up (%@)",
                                            {orv::FileSizeString(state.record->total())});
    }
    return percentage(state.record);
}

}  // namespace orv

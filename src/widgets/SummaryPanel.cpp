#include "widgets/SummaryPanel.h"

#include "foundation/system/LocalizedString.h"
#include "widgets/SizeText.h"

namespace orv {

void SummaryPanel::setFigures(const StorageFigures& figures) {
    const bool backupEnabled = figures_.backupEnabled;
    const bool syncEnabled = figures_.syncEnabled;
    figures_ = figures;
    figures_.backupEnabled = backupEnabled;
    figures_.syncEnabled = syncEnabled;
}

std::vector<SummaryRow> SummaryPanel::rows() const {
    std::vector<SummaryRow> rows;
    for (const auto& [role, bytes] : StorageParts(figures_))
        rows.push_back({LabelOf(role), FileSizeString(bytes), role});
    if (storedSize_ >= 0) {
        rows.push_back({quelm::GetLocalizedString("SpaceUsage.StoredAlready", "Stored already"),
                        FileSizeString(storedSize_), StorageRole::Quota});
    }
    constexpr StorageRole quota = StorageRole::Quota;
    if (figures_.quota > 0) rows.push_back({LabelOf(quota), FileSizeString(figures_.quota), quota});
    if (figures_.quota == -1) {
        rows.push_back({LabelOf(quota),
                        quelm::GetLocalizedString("SpaceUsage.Unlimited", "Unlimited"), quota});
    }
    return rows;
}

}  // namespace orv

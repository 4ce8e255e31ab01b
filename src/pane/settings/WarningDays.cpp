#include "pane/settings/WarningDays.h"

#include <algorithm>

#include "foundation/system/LocalizedString.h"

namespace orv {

WarningDaysChoice WarningDaysOf(std::int32_t setting) {
    WarningDaysChoice choice{{1, 3, 7, 14, 30, 0}};
    const std::int32_t days = std::max(setting, 0);
    const auto found = std::ranges::find(choice.days, days);
    choice.selected = static_cast<std::size_t>(found - choice.days.begin());
    if (found == choice.days.end()) choice.days.push_back(days);
    return choice;
}

std::string WarningDaysText(std::int32_t days) {
    using quelm::GetLocalizedString;
    if (days == 0) return GetLocalizedString("WarningDays.Never", "Never");
    if (days == 1) return GetLocalizedString("WarningDays.Day", "After 1 day");
    return quelm::FormatLocalizedString("WarningDays.Days", "After %d days", {days});
}

}  // namespace orv

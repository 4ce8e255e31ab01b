#pragma once

#include <cstdint>

#include "widgets/DurationText.h"

namespace orv {

/// From one time to a later one, both in seconds since 1970, by the local calendar: whole years,
/// months and days, then hours and minutes of what is left. Everything is 0 for an earlier one.
[[nodiscard]] DateComponents CalendarDifference(std::int64_t from, std::int64_t to);

}  // namespace orv

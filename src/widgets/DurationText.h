#pragma once

#include <string>

namespace orv {

/// A span of time by the calendar.
struct DateComponents {
    int years = 0;
    int months = 0;
    int days = 0;
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
};

/// "1 year 2 months": years, months and days; hours and minutes only where all of those are 0,
/// seconds only where these are 0 too. Empty when everything is 0.
[[nodiscard]] std::string durationString(const DateComponents& components);

}  // namespace orv

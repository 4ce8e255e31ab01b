#pragma once

#include <cstdint>

namespace quelm {

/// Seconds from 1904-01-01 to 1970-01-01, both at midnight UTC: 66 years with 17 leap days.
inline constexpr std::int64_t secondsFrom1904To1970 = (66 * 365 + 17) * std::int64_t{86'400};

/// From seconds since 1904 to seconds since 1970.
[[nodiscard]] constexpr std::int64_t LongDateTimeToTime(std::int64_t value) {
    return value - secondsFrom1904To1970;
}

/// From seconds since 1970 to seconds since 1904.
[[nodiscard]] constexpr std::int64_t TimeToLongDateTime(std::int64_t seconds) {
    return seconds + secondsFrom1904To1970;
}

}  // namespace quelm

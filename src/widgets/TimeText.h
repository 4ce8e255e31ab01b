#pragma once

#include <cstdint>
#include <string>

namespace orv {

/// "2 hours 1 minute": parts that are 0 are left out, seconds too once there is an hour; empty for
/// 0 and less.
[[nodiscard]] std::string TimeIntervalToString(std::int64_t seconds);

/// The same with the speed behind it, by powers of 1000: "5 minutes (1.5 MB per second)".
[[nodiscard]] std::string TimeEstimationToString(std::int64_t seconds, double bytesPerSecond);

}  // namespace orv

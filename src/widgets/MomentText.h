#pragma once

#include <cstdint>
#include <string>

namespace orv {

/// A moment for the person, by the local calendar: "today at 14:05", "yesterday at 09:30",
/// "2026-11-20 at 14:05". Both in seconds since 1970.
[[nodiscard]] std::string MomentText(std::int64_t moment, std::int64_t now);

}  // namespace orv

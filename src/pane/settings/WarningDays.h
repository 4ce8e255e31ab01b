#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orv {

/// After how many days without a complete backup the person can choose to be warned; 0 is never. A
/// number that is not among them, set elsewhere, is added.
struct WarningDaysChoice {
    std::vector<std::int32_t> days;
    std::size_t selected = 0;
};
[[nodiscard]] WarningDaysChoice WarningDaysOf(std::int32_t setting);

/// "After 3 days", "Never".
[[nodiscard]] std::string WarningDaysText(std::int32_t days);

}  // namespace orv

#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace orv {

/// A predefined set of include patterns that the user switches on or off.
struct FilterCategory {
    /// Also its key in the settings.
    std::string_view name;
    std::uint32_t type;
    /// Ended by a null entry.
    const char* const* patterns;
};

/// In the order in which they are tried.
[[nodiscard]] std::span<const FilterCategory> FilterCategories();

[[nodiscard]] bool IsFilterCategory(std::string_view name);

}  // namespace orv

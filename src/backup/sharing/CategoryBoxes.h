#pragma once

#include <array>
#include <string>

#include "backup/sharing/SharingOutlets.h"

namespace orv {

/// The boxes of the categories of files, in their order.
[[nodiscard]] std::array<CheckBox*, 7> CategoryBoxes(SharingOutlets& outlets);

/// The name of a box's category in the settings.
[[nodiscard]] std::string CategoryOfBox(std::size_t index);

}  // namespace orv

#pragma once

#include <vector>

#include "platform/Volumes.h"

namespace orv {

/// What is mounted, in mount order; of several file systems at one place the last, which hides the
/// others.
[[nodiscard]] std::vector<platform::Volume> VolumesInSight(platform::Volumes& volumes);

}  // namespace orv

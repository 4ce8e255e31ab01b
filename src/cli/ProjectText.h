#pragma once

#include <string>

#include "platform/Value.h"
#include "sync/projects/Project.h"

namespace orv::cli {

/// The project with the numbers and booleans that its texts stand for.
[[nodiscard]] quelm::Dictionary TypedProject(const quelm::Dictionary& project);

/// "12 Plans, Anna: 3 files, 1.5 MB, /home/anna/Projects/Plans".
[[nodiscard]] std::string ProjectLine(const Project& project);

}  // namespace orv::cli

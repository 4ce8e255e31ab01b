#pragma once

#include <string>

#include "cli/Command.h"

namespace orv::cli {

/// Whether a command may go on: false, after a message, for a property file that has content and
/// cannot be read.
[[nodiscard]] bool IsAbsentOrReadable(const std::string& path, Console& console);

}  // namespace orv::cli

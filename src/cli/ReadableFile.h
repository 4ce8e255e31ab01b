#pragma once

#include <string>

#include "cli/Command.h"
#include "platform/Value.h"

namespace orv::cli {

/// Whether a command may go on: false, after a message, for a property file that has content and
/// does not hold a list of the type, or that records cannot open, which is for reading and writing.
[[nodiscard]] bool IsAbsentOrReadable(const std::string& path, quelm::Value::Type type,
                                      Console& console);

}  // namespace orv::cli

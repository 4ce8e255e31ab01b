#pragma once

#include <optional>
#include <string>

#include "cli/Command.h"

namespace orv::cli {

/// Asks on the error stream and reads one line from standard input, which a terminal does not show.
/// None at the end of the input, and for a line of more than 1,024 bytes.
[[nodiscard]] std::optional<std::string> ReadHiddenLine(Console& console,
                                                        const std::string& question);

}  // namespace orv::cli

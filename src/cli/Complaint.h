#pragma once

#include <string_view>

#include "cli/Command.h"

namespace orv::cli {

/// One line of the program's own on the error stream.
void Say(Console& console, std::string_view message);
/// The same, and answers the code.
ExitCode Fail(Console& console, ExitCode code, std::string_view message);

}  // namespace orv::cli

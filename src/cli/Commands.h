#pragma once

#include "cli/Command.h"

namespace orv::cli {

ExitCode ShowConfigPath(Arguments arguments, Console& console);
ExitCode ShowConfigFile(Arguments arguments, Console& console);
ExitCode ShowHardwareId(Arguments arguments, Console& console);
ExitCode CheckKeychain(Arguments arguments, Console& console);
ExitCode ClassifyPath(Arguments arguments, Console& console);

}  // namespace orv::cli

#pragma once

#include "cli/Command.h"

namespace orv::cli {

ExitCode ShowConfigPath(const Arguments& arguments, Console& console);
ExitCode ShowConfigFile(const Arguments& arguments, Console& console);
ExitCode ShowHardwareId(const Arguments& arguments, Console& console);
ExitCode CheckKeychain(const Arguments& arguments, Console& console);
ExitCode PrintEvents(const Arguments& arguments, Console& console);
ExitCode SendEvent(const Arguments& arguments, Console& console);
ExitCode NotifySettings(const Arguments& arguments, Console& console);
ExitCode NotifyStatus(const Arguments& arguments, Console& console);
ExitCode NotifyReport(const Arguments& arguments, Console& console);
ExitCode ShowFilters(const Arguments& arguments, Console& console);
ExitCode MatchFilters(const Arguments& arguments, Console& console);
ExitCode AddExcludeFilter(const Arguments& arguments, Console& console);
ExitCode RemoveExcludeFilter(const Arguments& arguments, Console& console);
ExitCode SwitchFilterCategory(const Arguments& arguments, Console& console);
ExitCode ClassifyPath(const Arguments& arguments, Console& console);

}  // namespace orv::cli

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
ExitCode ClassifyPath(const Arguments& arguments, Console& console);
ExitCode ShowStorage(const Arguments& arguments, Console& console);
ExitCode ShowPrinters(const Arguments& arguments, Console& console);
ExitCode PrintBrandText(const Arguments& arguments, Console& console);

}  // namespace orv::cli

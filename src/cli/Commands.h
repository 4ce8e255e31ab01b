#pragma once

#include "cli/Command.h"

namespace orv::cli {

ExitCode ListAccounts(const Arguments& arguments, Console& console);
ExitCode PrintBrandText(const Arguments& arguments, Console& console);
ExitCode ShowConfigPath(const Arguments& arguments, Console& console);
ExitCode ShowConfigFile(const Arguments& arguments, Console& console);
ExitCode PrintEvents(const Arguments& arguments, Console& console);
ExitCode SwitchFilterCategory(const Arguments& arguments, Console& console);
ExitCode AddExcludeFilter(const Arguments& arguments, Console& console);
ExitCode RemoveExcludeFilter(const Arguments& arguments, Console& console);
ExitCode MatchFilters(const Arguments& arguments, Console& console);
ExitCode ShowFilters(const Arguments& arguments, Console& console);
ExitCode ListExcludedFiles(const Arguments& arguments, Console& console);
ExitCode AddExcludedFile(const Arguments& arguments, Console& console);
ExitCode RemoveExcludedFile(const Arguments& arguments, Console& console);
ExitCode AddFolder(const Arguments& arguments, Console& console);
ExitCode RemoveFolder(const Arguments& arguments, Console& console);
ExitCode ScanFolders(const Arguments& arguments, Console& console);
ExitCode ShowFolderTree(const Arguments& arguments, Console& console);
ExitCode ShowFolderRoots(const Arguments& arguments, Console& console);
ExitCode ShowFolderRows(const Arguments& arguments, Console& console);
ExitCode ShowHardwareId(const Arguments& arguments, Console& console);
ExitCode CheckKeychain(const Arguments& arguments, Console& console);
ExitCode NotifyReport(const Arguments& arguments, Console& console);
ExitCode NotifySettings(const Arguments& arguments, Console& console);
ExitCode NotifyStatus(const Arguments& arguments, Console& console);
ExitCode ClassifyPath(const Arguments& arguments, Console& console);
ExitCode ListLocks(const Arguments& arguments, Console& console);
ExitCode ListProjects(const Arguments& arguments, Console& console);
ExitCode ShowProject(const Arguments& arguments, Console& console);
ExitCode RequestProjects(const Arguments& arguments, Console& console);
ExitCode ShowProjectFolder(const Arguments& arguments, Console& console);
ExitCode ShowProjectListFile(const Arguments& arguments, Console& console);
ExitCode ShowPrinters(const Arguments& arguments, Console& console);
ExitCode SendEvent(const Arguments& arguments, Console& console);
ExitCode GetSetting(const Arguments& arguments, Console& console);
ExitCode ListSettings(const Arguments& arguments, Console& console);
ExitCode SetSetting(const Arguments& arguments, Console& console);
ExitCode ShowStatus(const Arguments& arguments, Console& console);
ExitCode ConnectAgent(const Arguments& arguments, Console& console);
ExitCode DisconnectAgent(const Arguments& arguments, Console& console);
ExitCode ShowDeviceInfo(const Arguments& arguments, Console& console);
ExitCode CheckPassword(const Arguments& arguments, Console& console);
ExitCode ShowStorage(const Arguments& arguments, Console& console);

}  // namespace orv::cli

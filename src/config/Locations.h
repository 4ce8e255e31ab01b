#pragma once

#include <array>
#include <string_view>

// Where the panel and the agent keep what they share. A leading "~" is the user's home.

namespace orv::locations {

/// The configuration of a single account, and of the account labelled "Default".
inline constexpr std::string_view defaultConfiguration = "~/Library/Preferences/com.corvanta.orv";

/// Holds one folder for each further account, named by the account's label.
inline constexpr std::string_view accountFolders =
    "~/Library/Preferences/com.quelm.configs/com.corvanta.orv/";

/// The list of configured accounts.
inline constexpr std::string_view accountList =
    "~/Library/Preferences/com.quelm.configs/com.corvanta.orv/alternative_configs.plist";

/// The programs that read the account's secrets without the user being asked.
inline constexpr auto passwordReaders = std::to_array<std::string_view>(
    {"/Applications/Corvanta Tidewell Backup.app",
     "/Applications/Corvanta Tidewell Backup.app/Contents/PlugIns/orvAgent",
     "/Applications/Corvanta Tidewell Backup.app/Contents/PlugIns/AccountSetup.app",
     "/Applications/System Preferences.app"});

/// The program that reads the passwords of servers: the system's network-authentication agent.
inline constexpr auto serverPasswordReaders =
    std::to_array<std::string_view>({"/System/Library/CoreServices/NetAuthAgent.app"});

/// Holds the user's flags that belong to no account.
inline constexpr std::string_view preferences = "~/Library/Preferences/";

/// The folder of projects unless the record of an account names another.
inline constexpr std::string_view projects = "~/Quelm Projects";

/// Each holds one folder a mounted volume; "*" is any one name, the user's.
inline constexpr auto volumeFolders =
    std::to_array<std::string_view>({"/Volumes", "/media/*", "/run/media/*"});

/// What can be made anew, and the locks of running agents.
inline constexpr std::string_view cache = "~/Library/Caches/com.corvanta.orv";

/// What the panel logs.
inline constexpr std::string_view panelLog = "~/Library/Logs/CorvantaPrefPane.log";

}  // namespace orv::locations

namespace orv::files {

inline constexpr const char* userInfo = "user_info.plist";
inline constexpr const char* serverInfo = "server_info.plist";
inline constexpr const char* storageInfo = "storage_info.plist";
inline constexpr const char* shareInfo = "share_info.plist";
inline constexpr const char* filterInfo = "filter_info.plist";
inline constexpr const char* excludedFiles = "excluded_files.plist";
inline constexpr const char* storageExceptions = "storage_exceptions.xml";
inline constexpr const char* branding = "branding.plist";
inline constexpr const char* printerInfo = "printer_info.plist";
inline constexpr const char* fingerPrints = "finger_prints.plist";
inline constexpr const char* storageFolders = "storage_folders.xml";
inline constexpr const char* storageQuota = "storage_quota.xml";
inline constexpr const char* subscribedProjects = "subscribed_projects.plist";
inline constexpr const char* backupHistory = "backup_history.plist";

}  // namespace orv::files

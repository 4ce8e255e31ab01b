#pragma once

#include <string>
#include <string_view>

namespace orv::links {

/// What begins an address of the panel's own, which the desktop opens with the panel.
inline constexpr std::string_view scheme = "orv:";

inline constexpr const char* panel = "orv:panel";
inline constexpr const char* connect = "orv:connect";
/// The choice of folders to back up.
inline constexpr const char* backupConfiguration = "orv:backup_config+1";
inline constexpr const char* lockedFiles = "orv:lockedFilesWindow";
inline constexpr const char* permissionViolations = "orv:fixPermissionViolationsWindow";
// "orv:tab?" and a tab's identifier
inline constexpr std::string_view tabPrefix = "orv:tab?";
inline constexpr const char* backupTab = "orv:tab?Folders";
inline constexpr const char* projectsTab = "orv:tab?Projects";
inline constexpr const char* bandwidthTab = "orv:tab?Bandwidth";
inline constexpr std::string_view dashboardPrefix = "orv:dashboard?";

/// The account's page of the service.
[[nodiscard]] inline std::string Dashboard(const std::string& agentId) {
    return std::string(dashboardPrefix) + agentId;
}

}  // namespace orv::links

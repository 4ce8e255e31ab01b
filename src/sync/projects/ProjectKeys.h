#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace orv {

/// How the text under a key of a project is read.
enum class ProjectKeyType { Text, Integer, Boolean, Data };

struct ProjectKey {
    const char* name;
    ProjectKeyType type = ProjectKeyType::Text;
};

/// The attributes of a project, as the agent calls them. All are kept as the texts that the agent
/// sent, but for those marked.
namespace projectkeys {
inline constexpr ProjectKey id{"id"};
/// Of the sync root, for external projects.
inline constexpr ProjectKey rootId{"root-id"};
inline constexpr ProjectKey name{"name"};
/// For display: "Me" for the user.
inline constexpr ProjectKey owner{"owner"};
inline constexpr ProjectKey ownerId{"owner-id"};
inline constexpr ProjectKey path{"local-path"};
/// The folder from which the project is imported.
inline constexpr ProjectKey projectLoaderSourcePath{"project-loader-path"};
/// Bytes.
inline constexpr ProjectKey totalSize{"total-size", ProjectKeyType::Integer};
inline constexpr ProjectKey totalFiles{"total-files", ProjectKeyType::Integer};
inline constexpr ProjectKey totalFolders{"total-folders", ProjectKeyType::Integer};
/// Bytes.
inline constexpr ProjectKey syncedSize{"synced-size", ProjectKeyType::Integer};
inline constexpr ProjectKey syncedFiles{"synced-files", ProjectKeyType::Integer};
inline constexpr ProjectKey readOnly{"read-only", ProjectKeyType::Boolean};
inline constexpr ProjectKey subscribed{"subscribed", ProjectKeyType::Boolean};
/// "0" while the user has not been told of the project.
inline constexpr ProjectKey known{"known", ProjectKeyType::Boolean};
inline constexpr ProjectKey outOfQuota{"outOfQuota", ProjectKeyType::Boolean};
/// In a folder of its own, outside the master project folder.
inline constexpr ProjectKey external{"external", ProjectKeyType::Boolean};
/// Only a part is synchronised.
inline constexpr ProjectKey partial{"partial", ProjectKeyType::Boolean};
/// A boolean, which the list sets.
inline constexpr ProjectKey ownedByMe{"ownedByMe", ProjectKeyType::Boolean};
inline constexpr ProjectKey archived{"archived", ProjectKeyType::Boolean};
/// For display; the list makes it.
inline constexpr ProjectKey status{"status"};
/// Data: which part, as an XML document.
inline constexpr ProjectKey partialSubscriptionXML{"partialSubscriptionXML", ProjectKeyType::Data};

inline constexpr std::array all = {id,
                                   rootId,
                                   name,
                                   owner,
                                   ownerId,
                                   path,
                                   projectLoaderSourcePath,
                                   totalSize,
                                   totalFiles,
                                   totalFolders,
                                   syncedSize,
                                   syncedFiles,
                                   readOnly,
                                   subscribed,
                                   known,
                                   outOfQuota,
                                   external,
                                   partial,
                                   ownedByMe,
                                   archived,
                                   status,
                                   partialSubscriptionXML};
}  // namespace projectkeys

}  // namespace orv

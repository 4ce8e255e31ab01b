#pragma once

#include <array>
#include <cstdint>
#include <optional>

// The vocabulary that panel and agent share about projects: the numbers travel in notifications,
// property lists and violation lists, the names stand in logs. Each enumeration is one table, from
// which its type, its names and the check of an incoming number are made.

namespace quelm::sync {

template <class Enum>
struct NamedValue {
    Enum value;
    const char* name;
};

/// The table of an enumeration, in the order of the numbers.
template <class Enum>
inline constexpr std::array<NamedValue<Enum>, 0> namedValues{};

#define QUELM_SYNC_VALUE(number, name) name = (number),
#define QUELM_SYNC_NAME(number, name) {static_cast<Type>(number), #name},
#define QUELM_SYNC_NAMES(Enum, TABLE)                                     \
    template <>                                                           \
    inline constexpr auto namedValues<Enum> = [] {                        \
        using Type = Enum;                                                \
        return std::to_array<NamedValue<Type>>({TABLE(QUELM_SYNC_NAME)}); \
    }();

/// What backs a sync root.
#define QUELM_SYNC_FS_TYPES(X) \
    X(0, FS_TYPE_VIRTUAL)      \
    X(1, FS_TYPE_REGULAR)      \
    X(2, FS_TYPE_NULL)
enum EFsType : std::int32_t { QUELM_SYNC_FS_TYPES(QUELM_SYNC_VALUE) };
QUELM_SYNC_NAMES(EFsType, QUELM_SYNC_FS_TYPES)

#define QUELM_SYNC_ROOT_TYPES(X) \
    X(0, MASTER_PROJECT_FOLDER)  \
    X(1, EXTERNAL_PROJECT_FOLDER)
enum ESyncRootType : std::int32_t { QUELM_SYNC_ROOT_TYPES(QUELM_SYNC_VALUE) };
QUELM_SYNC_NAMES(ESyncRootType, QUELM_SYNC_ROOT_TYPES)

/// 1, 4 and 16 are not assigned.
#define QUELM_SYNC_ERRORS(X)                \
    X(0, SYNC_ERROR_NONE)                   \
    X(2, SYNC_ERROR_WATCHER_STARTED)        \
    X(3, SYNC_ERROR_ROOT_REMOVED)           \
    X(5, SYNC_ERROR_ROOT_MISSING)           \
    X(6, SYNC_ERROR_INVALID_ROOT_PATH)      \
    X(7, SYNC_ERROR_CANNOT_CREATE_ROOT)     \
    X(8, SYNC_ERROR_ROOT_NOT_OWNED)         \
    X(9, SYNC_ERROR_NEW_ROOT_NOT_EMPTY)     \
    X(10, SYNC_ERROR_INVALID_WATCHER)       \
    X(11, SYNC_ERROR_CREATE_PROJECT_FAILED) \
    X(12, SYNC_ERROR_OUT_OF_DISKSPACE)      \
    X(13, SYNC_ERROR_CANNOT_PLACE_FILE)     \
    X(14, SYNC_ERROR_CANNOT_UPLOAD_FILE)    \
    X(15, SYNC_ERROR_CANNOT_CREATE_FOLDER)  \
    X(17, SYNC_ERROR_INVALID_KEY)           \
    X(18, SYNC_ERROR_DISK_QUOTA_EXCEEDED)   \
    X(19, SYNC_ERROR_DB_REBUILD)            \
    X(20, SYNC_ERROR_REPEATED_REBUILD_DB)
enum ESyncError : std::int32_t { QUELM_SYNC_ERRORS(QUELM_SYNC_VALUE) };
QUELM_SYNC_NAMES(ESyncError, QUELM_SYNC_ERRORS)

/// What happened to an item; SRV_ on the server's side, CL_ on this computer's. The order of the
/// two is the other way round at LOCKED and UNLOCKED.
#define QUELM_SYNC_OPERATIONS(X) \
    X(0, NO_SYNC_OPERATION)      \
    X(1, SRV_FILE_RENAME)        \
    X(2, CL_FILE_RENAME)         \
    X(3, SRV_FILE_DELETE)        \
    X(4, CL_FILE_DELETE)         \
    X(5, SRV_FOLDER_CREATE)      \
    X(6, CL_FOLDER_CREATE)       \
    X(7, SRV_FOLDER_RENAME)      \
    X(8, CL_FOLDER_RENAME)       \
    X(9, SRV_FOLDER_DELETE)      \
    X(10, CL_FOLDER_DELETE)      \
    X(11, SRV_PROJECT_CREATE)    \
    X(12, CL_PROJECT_CREATE)     \
    X(13, SRV_PROJECT_RENAME)    \
    X(14, CL_PROJECT_RENAME)     \
    X(15, SRV_PROJECT_DELETE)    \
    X(16, CL_PROJECT_DELETE)     \
    X(17, CL_FILE_LOCKED)        \
    X(18, SRV_FILE_LOCKED)       \
    X(19, CL_FILE_UNLOCKED)      \
    X(20, SRV_FILE_UNLOCKED)     \
    X(21, CL_FILE_UPLOADED)      \
    X(22, SRV_FILE_UPDATED)      \
    X(23, SRV_FILE_COPIED)       \
    X(24, CL_FILE_MERGED)        \
    X(25, CL_FILE_NOT_MODIFIED)  \
    X(26, CL_FILE_IMPORTED)      \
    X(27, CL_FOLDER_IMPORTED)
enum ESyncOperation : std::int32_t { QUELM_SYNC_OPERATIONS(QUELM_SYNC_VALUE) };
QUELM_SYNC_NAMES(ESyncOperation, QUELM_SYNC_OPERATIONS)

#define QUELM_SYNC_DROP_REASONS(X)      \
    X(0, FILE_IN_MASTER_PROJECT_FOLDER) \
    X(1, PROJECT_NOT_AUTO_SYNCED)
enum EDropModificationReason : std::int32_t { QUELM_SYNC_DROP_REASONS(QUELM_SYNC_VALUE) };
QUELM_SYNC_NAMES(EDropModificationReason, QUELM_SYNC_DROP_REASONS)

#define QUELM_SYNC_PERMISSIONS_DENIED(X)    \
    X(0, NO_PERMISSIONS_DENIED)             \
    X(1, CREATE_PROJECT_PERMISSIONS_DENIED) \
    X(2, UPDATE_PERMISSIONS_DENIED)         \
    X(3, CREATE_PERMISSIONS_DENIED)         \
    X(4, RENAME_PERMISSIONS_DENIED)         \
    X(5, DELETE_PERMISSIONS_DENIED)         \
    X(6, RENAME_TO_EXISTING_DENIED)         \
    X(7, ACCESS_DENIED)                     \
    X(8, DELETE_MODIFIED_DENIED)
enum EPermissionsDenied : std::int32_t { QUELM_SYNC_PERMISSIONS_DENIED(QUELM_SYNC_VALUE) };
QUELM_SYNC_NAMES(EPermissionsDenied, QUELM_SYNC_PERMISSIONS_DENIED)

#define QUELM_SYNC_ITEM_LOCKS(X) \
    X(0, NO_SYNC_LOCK)           \
    X(1, SYNC_LOCK)              \
    X(2, SYNC_LOCK_FOR_ME)       \
    X(3, SYNC_PENDING_UNLOCK)
enum ESyncItemLock : std::int32_t { QUELM_SYNC_ITEM_LOCKS(QUELM_SYNC_VALUE) };
QUELM_SYNC_NAMES(ESyncItemLock, QUELM_SYNC_ITEM_LOCKS)

/// A level from 0 to 100; 1024 is added for projects to which the user is subscribed.
#define QUELM_SYNC_ITEM_PERMISSIONS(X) \
    X(0, PERM_NONE)                    \
    X(5, PERM_PROJECT_RESTRICTED_LIST) \
    X(10, PERM_PROJECT_LIST)           \
    X(15, PERM_PROJECT_VIEW_ONLY)      \
    X(20, PERM_PROJECT_VIEW)           \
    X(30, PERM_PROJECT_ACCESS)         \
    X(40, PERM_PROJECT_UPDATE)         \
    X(50, PERM_PROJECT_CREATE)         \
    X(60, PERM_PROJECT_DELETE)         \
    X(70, PERM_PROJECT_DELETE_PROJECT) \
    X(100, PERM_PROJECT_OWNER)         \
    X(1024, PERM_SUBSCRIBED)           \
    X(1029, PERM_RESTRICTED_LIST)      \
    X(1034, PERM_LIST)                 \
    X(1039, PERM_VIEW_ONLY)            \
    X(1044, PERM_VIEW)                 \
    X(1054, PERM_ACCESS)               \
    X(1064, PERM_UPDATE)               \
    X(1074, PERM_CREATE)               \
    X(1084, PERM_DELETE)               \
    X(1094, PERM_DELETE_PROJECT)       \
    X(1124, PERM_OWNER)
enum EItemPermissions : std::int32_t { QUELM_SYNC_ITEM_PERMISSIONS(QUELM_SYNC_VALUE) };
QUELM_SYNC_NAMES(EItemPermissions, QUELM_SYNC_ITEM_PERMISSIONS)

#define QUELM_SYNC_PLACE_FILE_RESULTS(X) \
    X(0, FILE_CACHE_FILE_PLACED)         \
    X(1, FILE_CACHE_INVALID_PARENT)      \
    X(2, FILE_CACHE_NOT_FOUND)           \
    X(3, FILE_CACHE_CANNOT_PLACE)
enum EPlaceFileResult : std::int32_t { QUELM_SYNC_PLACE_FILE_RESULTS(QUELM_SYNC_VALUE) };
QUELM_SYNC_NAMES(EPlaceFileResult, QUELM_SYNC_PLACE_FILE_RESULTS)

#define QUELM_SYNC_LOCK_REQUESTS(X)  \
    X(0, LOCK_REQ_LOCK_FILE)         \
    X(1, LOCK_REQ_LOCK_AFTER_UPDATE) \
    X(2, LOCK_REQ_UNLOCK_FILE)       \
    X(3, LOCK_REQ_UNLOCK_FOR_UPDATE)
enum ELockRequestType : std::int32_t { QUELM_SYNC_LOCK_REQUESTS(QUELM_SYNC_VALUE) };
QUELM_SYNC_NAMES(ELockRequestType, QUELM_SYNC_LOCK_REQUESTS)

namespace perms {

/// What resolves a permission violation.
#define QUELM_SYNC_ACTIONS(X)    \
    X(0, ACTION_NONE)            \
    X(1, ACTION_DELETE)          \
    X(2, ACTION_RENAME)          \
    X(3, ACTION_MOVE)            \
    X(4, ACTION_CREATE)          \
    X(5, ACTION_DELETE_DOWNLOAD) \
    X(6, ACTION_MOVE_DOWNLOAD)
enum EActionType : std::int32_t { QUELM_SYNC_ACTIONS(QUELM_SYNC_VALUE) };

/// What a changed list of violations asks of its viewer.
#define QUELM_SYNC_UPDATE_REQUESTS(X) \
    X(0, NO_UPDATE)                   \
    X(1, UPDATE_DISPLAY)              \
    X(2, REFETCH_LIST)
enum EUpdateReq : std::int32_t { QUELM_SYNC_UPDATE_REQUESTS(QUELM_SYNC_VALUE) };

}  // namespace perms

QUELM_SYNC_NAMES(perms::EActionType, QUELM_SYNC_ACTIONS)
QUELM_SYNC_NAMES(perms::EUpdateReq, QUELM_SYNC_UPDATE_REQUESTS)

#undef QUELM_SYNC_NAMES
#undef QUELM_SYNC_NAME
#undef QUELM_SYNC_VALUE

/// The value's name; "<UNKNOWN>" for one that the table does not have.
template <class Enum>
requires(!namedValues<Enum>.empty()) [[nodiscard]] constexpr const char* EnumString(Enum value) {
    for (const auto& row : namedValues<Enum>) {
        if (row.value == value) return row.name;
    }
    return "<UNKNOWN>";
}

/// The value with an incoming number; none for one that the table does not have.
template <class Enum>
[[nodiscard]] constexpr std::optional<Enum> EnumFromNumber(std::int64_t number) {
    for (const auto& row : namedValues<Enum>) {
        if (row.value == number) return row.value;
    }
    return std::nullopt;
}

namespace perms {
using sync::EnumString;
}

}  // namespace quelm::sync

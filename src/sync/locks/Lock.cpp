#include "sync/locks/Lock.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "foundation/system/Log.h"

namespace orv {

using quelm::sync::ESyncItemLock;

Lock::Lock(std::string fileId, std::string path, bool locked, std::int64_t lockTime,
           ESyncItemLock lockStatus, std::string teamName)
    : fileID_(std::move(fileId)),
      path_(std::move(path)),
      locked_(locked),
      lockTime_(lockTime),
      lockStatus_(lockStatus),
      teamName_(std::move(teamName)) {}

void Lock::setLockDetails(std::string details, std::string_view accountId) {
    lockDetails_ = std::move(details);
    if (lockDetails_.empty()) return;
    try {
        const auto json = nlohmann::json::parse(lockDetails_);
        const auto origin = json.is_object() ? json.find("badge_origin") : json.end();
        smartLock_ = origin != json.end() && origin->is_string() &&
                     origin->get_ref<const std::string&>() == accountId;
    } catch (const nlohmann::json::exception& error) {
        quelm::LogError(std::string("Error parsing JSON: ") + error.what());
    }
}

bool Lock::isMine() const {
    return lockStatus_ == quelm::sync::SYNC_LOCK_FOR_ME ||
           lockStatus_ == quelm::sync::SYNC_PENDING_UNLOCK;
}

quelm::Dictionary Lock::dictionary() const {
    return {{"fileId", fileID_},
            {"path", path_},
            {"locked", locked_},
            {"lockTime", lockTime_},
            {"lockStatus", quelm::sync::EnumString(lockStatus_)},
            {"teamName", teamName_},
            {"lockHolder", lockHolder_},
            {"lockHolderId", lockHolderId_},
            {"lockDetails", lockDetails_},
            {"smartLock", smartLock_},
            {"mine", isMine()}};
}

}  // namespace orv

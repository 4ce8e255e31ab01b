#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Value.h"
#include "sync/SyncEnumerations.h"

namespace orv {

/// One locked file of a project.
class Lock {
 public:
    Lock(std::string fileId, std::string path, bool locked, std::int64_t lockTime,
         quelm::sync::ESyncItemLock lockStatus, std::string teamName);

    [[nodiscard]] const std::string& fileID() const { return fileID_; }
    [[nodiscard]] const std::string& path() const { return path_; }
    void setPath(std::string path) { path_ = std::move(path); }
    [[nodiscard]] bool locked() const { return locked_; }
    void setLocked(bool locked) { locked_ = locked; }
    /// As the agent sends it.
    [[nodiscard]] std::int64_t lockTime() const { return lockTime_; }
    [[nodiscard]] quelm::sync::ESyncItemLock lockStatus() const { return lockStatus_; }
    void setLockStatus(quelm::sync::ESyncItemLock status) { lockStatus_ = status; }
    /// Of the agent's account.
    [[nodiscard]] const std::string& teamName() const { return teamName_; }
    /// For display.
    [[nodiscard]] const std::string& lockHolder() const { return lockHolder_; }
    void setLockHolder(std::string holder) { lockHolder_ = std::move(holder); }
    [[nodiscard]] const std::string& lockHolderId() const { return lockHolderId_; }
    void setLockHolderId(std::string id) { lockHolderId_ = std::move(id); }

    /// JSON text. Not empty, it decides whether this is a smart lock: one whose object names
    /// `accountId` under "badge_origin". What does not parse is logged and decides nothing.
    void setLockDetails(std::string details, std::string_view accountId);
    [[nodiscard]] const std::string& lockDetails() const { return lockDetails_; }
    [[nodiscard]] bool smartLock() const { return smartLock_; }

    /// Whether the person has been told of the unlock that waits.
    [[nodiscard]] bool notificationShowed() const { return notificationShowed_; }
    void setNotificationShowed(bool showed) { notificationShowed_ = showed; }

    /// Held by the user, also while an unlock waits.
    [[nodiscard]] bool isMine() const;

    /// For notifications and for `orvctl`.
    [[nodiscard]] quelm::Dictionary dictionary() const;

 private:
    std::string fileID_;
    std::string path_;
    bool locked_;
    std::int64_t lockTime_;
    quelm::sync::ESyncItemLock lockStatus_;
    std::string teamName_;
    std::string lockHolder_;
    std::string lockHolderId_;
    std::string lockDetails_;
    bool smartLock_ = false;
    bool notificationShowed_ = false;
};

}  // namespace orv

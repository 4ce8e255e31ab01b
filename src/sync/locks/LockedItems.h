#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Value.h"
#include "sync/locks/Lock.h"

namespace orv {

/// What an agent says of one item in the event "sync_item". A lock that is no ESyncItemLock counts
/// as none.
struct LockItem {
    std::string fileId;
    std::string path;
    bool locked = false;
    std::int64_t lockTime = 0;
    quelm::sync::ESyncItemLock lockStatus = quelm::sync::NO_SYNC_LOCK;
    std::string lockHolder;
    std::string lockHolderId;
    std::string lockDetails;
    std::string agentId;
};
[[nodiscard]] LockItem LockItemOf(const quelm::Dictionary& payload);

/// The locks of which agents have told, ordered by path.
class LockedItems {
 public:
    /// Told of every lock that is new or heard of again, and whether its unlock is deferred now.
    using Notice = std::function<void(Lock& lock, bool isDeferred)>;

    explicit LockedItems(Notice notice = {}) : notice_(std::move(notice)) {}

    /// Adds, changes or removes the item's lock: the lock when there is something to tell of it. An
    /// item without a path is ignored. `teamName` is of the agent's account, `accountId` the
    /// user's.
    std::optional<Lock> processFileID(const LockItem& item, const std::string& teamName,
                                      const std::string& accountId);

    [[nodiscard]] const std::vector<Lock>& locks() const { return locks_; }

 private:
    using Place = std::vector<Lock>::iterator;

    std::optional<Lock> add(const LockItem& item, const std::string& teamName,
                            const std::string& accountId);
    std::optional<Lock> update(Place lock, const LockItem& item, const std::string& accountId);
    void tell(Lock& lock) const;

    Notice notice_;
    std::vector<Lock> locks_;
};

}  // namespace orv

#include "sync/locks/LockedItems.h"

#include <algorithm>
#include <array>
#include <utility>

#include "agentlink/AgentPayload.h"
#include "agentlink/AgentVocabulary.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

using quelm::sync::ESyncItemLock;

/// A longer list is for no person; what comes then is left out.
constexpr std::size_t mostLocks = 10'000;

/// States of an item, under "status", in which it has no lock.
constexpr std::array unlockedStates = {3, 6};

void takeHolder(Lock& lock, const LockItem& item, const std::string& accountId) {
    lock.setLockHolder(item.lockHolder);
    lock.setLockHolderId(item.lockHolderId);
    lock.setLockDetails(item.lockDetails, accountId);
}

}  // namespace

LockItem LockItemOf(const quelm::Dictionary& payload) {
    const auto lock = quelm::sync::EnumFromNumber<ESyncItemLock>(PayloadNumber(payload, keys::lock))
                          .value_or(quelm::sync::NO_SYNC_LOCK);
    const bool isUnlocked =
        std::ranges::find(unlockedStates, PayloadNumber(payload, keys::status)) !=
        unlockedStates.end();
    return {.fileId = PayloadText(payload, keys::itemId),
            .path = PayloadText(payload, keys::path),
            .locked = !isUnlocked && lock != quelm::sync::NO_SYNC_LOCK,
            .lockTime = PayloadNumber(payload, keys::lockTime),
            .lockStatus = lock,
            .lockHolder = PayloadText(payload, keys::lockHolder),
            .lockHolderId = PayloadText(payload, keys::lockHolderId),
            .lockDetails = PayloadText(payload, keys::lockDetails),
            .agentId = PayloadText(payload, keys::agentId)};
}

std::optional<Lock> LockedItems::processFileID(const LockItem& item, const std::string& teamName,
                                               const std::string& accountId) {
    if (item.path.empty()) return std::nullopt;
    const auto held = std::ranges::find(locks_, item.fileId, &Lock::fileID);
    if (held != locks_.end()) return update(held, item, accountId);
    return item.locked ? add(item, teamName, accountId) : std::nullopt;
}

std::optional<Lock> LockedItems::add(const LockItem& item, const std::string& teamName,
                                     const std::string& accountId) {
    if (locks_.size() >= mostLocks) {
        quelm::LogWarning("Too many locked files: " + item.path + " is left out.");
        return std::nullopt;
    }
    Lock lock(item.fileId, item.path, true, item.lockTime, item.lockStatus, teamName);
    takeHolder(lock, item, accountId);
    tell(lock);
    locks_.insert(std::ranges::upper_bound(locks_, lock.path(), {}, &Lock::path), lock);
    return lock;
}

std::optional<Lock> LockedItems::update(Place place, const LockItem& item,
                                        const std::string& accountId) {
    const bool isOther = place->lockStatus() != item.lockStatus;
    place->setLockStatus(item.lockStatus);
    tell(*place);
    Lock lock = *place;
    if (!item.locked) {
        locks_.erase(place);
        lock.setLocked(false);
        return lock;
    }
    lock.setPath(item.path);
    takeHolder(lock, item, accountId);
    const bool isMoved = place->path() != item.path;
    *place = lock;
    if (isMoved) std::ranges::stable_sort(locks_, {}, &Lock::path);
    return isOther ? std::optional(lock) : std::nullopt;
}

void LockedItems::tell(Lock& lock) const {
    if (notice_) notice_(lock, lock.lockStatus() == quelm::sync::SYNC_PENDING_UNLOCK);
}

}  // namespace orv

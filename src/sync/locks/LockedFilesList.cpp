#include "sync/locks/LockedFilesList.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "agentlink/AgentPayload.h"
#include "agentlink/AgentVocabulary.h"
#include "sync/SyncRequest.h"

namespace orv {

namespace {

std::unique_ptr<LockedFilesList>& sharedList() {
    static std::unique_ptr<LockedFilesList> list;
    return list;
}

}  // namespace

LockedFilesList::LockedFilesList(const SyncEnvironment& environment)
    : environment_(environment), clients_(environment.notifications, changedNotification, this) {
    registerAgentEvents();
}

LockedFilesList::~LockedFilesList() {
    environment_.dispatcher.unregisterTarget(this);
}

LockedFilesList& LockedFilesList::defaultLockedFilesList() {
    auto& shared = sharedList();
    if (!shared) {
        shared = std::make_unique<LockedFilesList>(ProcessSyncEnvironment());
    }
    return *shared;
}

void LockedFilesList::destroyInstance() {
    sharedList().reset();
}

void LockedFilesList::registerAgentEvents() {
    AgentEventDispatcher& dispatcher = environment_.dispatcher;
    dispatcher.registerEventName(events::syncItem, this,
                                 MakeSelector<&LockedFilesList::handleSyncItem>("handleSyncItem"));
    dispatcher.registerEventName(
        events::syncError, this,
        MakeSelector<&LockedFilesList::handleAgentStarted>("handleAgentStarted"));
    dispatcher.registerEventName(
        events::serverResponse, this,
        MakeSelector<&LockedFilesList::handleServerResponse>("handleServerResponse"));
    dispatcher.registerEventName(
        events::syncResponse, this,
        MakeSelector<&LockedFilesList::handleSyncResponse>("handleSyncResponse"));
}

std::optional<Lock> LockedFilesList::lockForPath(std::string_view path) const {
    const auto found = std::ranges::find(locks(), path, &Lock::path);
    return found != locks().end() ? std::optional(*found) : std::nullopt;
}

std::vector<Lock> LockedFilesList::myLocks() const {
    std::vector<Lock> mine;
    std::ranges::copy_if(locks(), std::back_inserter(mine), &Lock::isMine);
    return mine;
}

void LockedFilesList::populateList() {
    SendSyncRequest(commands::requestLockedItems);
}

void LockedFilesList::handleAgentStarted(const quelm::Dictionary& payload) {
    if (PayloadNumber(payload, keys::error) == quelm::sync::SYNC_ERROR_NONE) populateList();
}

void LockedFilesList::handleSyncItem(const quelm::Dictionary& payload) {
    const LockItem item = LockItemOf(payload);
    AccountList& accounts = environment_.accounts;
    const auto changed = lockedFiles.processFileID(
        item, accounts.teamForAgentID(item.agentId).value_or(""), accounts.defaultConfig().rcid());
    if (changed) clients_.post({{"lock", changed->dictionary()}});
}

}  // namespace orv

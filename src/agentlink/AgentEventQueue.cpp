#include "agentlink/AgentEventQueue.h"

#include <algorithm>
#include <deque>
#include <pthread.h>
#include <utility>

#include "agentlink/AgentVocabulary.h"
#include "foundation/threads/Condition.h"
#include "foundation/threads/DetachedThread.h"
#include "foundation/threads/Mutex.h"
#include "platform/Services.h"

namespace orv {

namespace {

using quelm::CLockIt;
using quelm::Dictionary;
using quelm::Value;
using Clock = std::chrono::steady_clock;

// Never destroyed: the detached thread may still wait when the process ends.
auto& s_NotificationSendMutex = *new quelm::CMutex(quelm::CMutex::EMutexType::Recursive);
auto& s_NotificationSendCond = *new quelm::CCondition;
auto& s_NotificationIdleCond = *new quelm::CCondition;
auto& s_NotificationQueue = *new std::deque<Dictionary>;
bool s_NotificationThreadInitialized = false;
/// The thread holds an event that the center has not sent.
bool s_NotificationUnderWay = false;
bool s_NotificationsEnded = false;

platform::DistributedNotificationCenter* center() {
    return platform::ProcessServices().notifications.get();
}

void postEvent(const Dictionary& payload) {
    if (center()) center()->post(notifications::agentEvent, NotificationObjectId(), payload);
}

/// Waits for an event and takes it; none once the queue has ended.
std::optional<Dictionary> takeEvent() {
    const CLockIt lock(s_NotificationSendMutex);
    s_NotificationUnderWay = false;
    if (s_NotificationQueue.empty()) s_NotificationIdleCond.Broadcast();
    while (s_NotificationQueue.empty() && !s_NotificationsEnded)
        s_NotificationSendCond.Wait(s_NotificationSendMutex);
    if (s_NotificationsEnded) return std::nullopt;
    Dictionary payload = std::move(s_NotificationQueue.front());
    s_NotificationQueue.pop_front();
    s_NotificationUnderWay = true;
    return payload;
}

void setThreadRuns(bool runs) {
    const CLockIt lock(s_NotificationSendMutex);
    s_NotificationThreadInitialized = runs;
    s_NotificationUnderWay = false;
    s_NotificationIdleCond.Broadcast();
}

/// What waits behind an event that the bus does not take yet stays in the queue, where it can be
/// replaced by a newer one.
void waitUntilTaken() {
    constexpr std::chrono::minutes turn(1);
    bool ended = false;
    while (center() && !ended && !center()->waitForRoom(turn)) {
        const CLockIt lock(s_NotificationSendMutex);
        ended = s_NotificationsEnded;
    }
}

void NotificationSendThread(void*) {
    pthread_setname_np(pthread_self(), "agent-events");
    setThreadRuns(true);
    try {
        while (const auto payload = takeEvent()) {
            postEvent(*payload);
            waitUntilTaken();
        }
    } catch (...) {
        // the next event that is queued starts the thread anew
    }
    setThreadRuns(false);
}

/// With the mutex held. False when no thread could be made.
bool wakeThread() {
    if (s_NotificationThreadInitialized) {
        s_NotificationSendCond.Signal();
        return true;
    }
    // set here too: a second thread would post out of order
    s_NotificationThreadInitialized =
        quelm::CDetachedThread(NotificationSendThread, nullptr).Run() == 0;
    return s_NotificationThreadInitialized;
}

void address(Dictionary& payload, const AgentId& agentId, const std::string& eventName) {
    if (agentId && !payload.find(keys::agentId)) payload.set(keys::agentId, *agentId);
    if (!payload.find(keys::eventName)) payload.set(keys::eventName, eventName);
}

const std::string* textUnder(const Dictionary& payload, const std::string& key) {
    const Value* value = payload.find(key);
    return value ? value->asString() : nullptr;
}

/// Two texts are compared; a key that is there with another type matches nothing.
bool hasText(const Dictionary& payload, const std::string& key, const std::string* text) {
    const std::string* own = textUnder(payload, key);
    return own && text && *own == *text;
}

bool isOfSameKind(const Dictionary& queued, const AgentId& agentId, const std::string& eventName,
                  const std::optional<std::string>& key, const std::string* keyText) {
    const bool sameAgent =
        agentId ? hasText(queued, keys::agentId, &*agentId) : !queued.find(keys::agentId);
    return sameAgent && hasText(queued, keys::eventName, &eventName) &&
           (!key || hasText(queued, *key, keyText));
}

/// With the mutex held: the event that a newer one replaces, or null.
Dictionary* findReplaceable(const AgentId& agentId, const std::string& eventName,
                            const std::optional<std::string>& key, const Dictionary& payload) {
    constexpr std::ptrdiff_t range = 15;
    const std::string* keyText = key ? textUnder(payload, *key) : nullptr;
    const auto newest = s_NotificationQueue.rbegin();
    const auto end = newest + std::min(range, std::ssize(s_NotificationQueue));
    const auto found = std::find_if(newest, end, [&](const Dictionary& queued) {
        return isOfSameKind(queued, agentId, eventName, key, keyText);
    });
    return found == end ? nullptr : &*found;
}

}  // namespace

void QueueAgentEvent(const AgentId& agentId, const std::string& eventName, Dictionary payload) {
    address(payload, agentId, eventName);
    std::optional<Dictionary> unsent;
    {
        const CLockIt lock(s_NotificationSendMutex);
        if (s_NotificationsEnded) return;
        s_NotificationQueue.push_back(std::move(payload));
        if (!wakeThread()) unsent = s_NotificationQueue.back();
    }
    if (unsent) postEvent(*unsent);
}

void QueueAgentEventCoalesce(const AgentId& agentId, const std::optional<std::string>& eventName,
                             const std::optional<std::string>& coalescingKey, Dictionary payload) {
    if (eventName) {
        const CLockIt lock(s_NotificationSendMutex);
        if (Dictionary* older = findReplaceable(agentId, *eventName, coalescingKey, payload)) {
            address(payload, agentId, *eventName);
            *older = std::move(payload);
            return;
        }
    }
    QueueAgentEvent(agentId, eventName.value_or(""), std::move(payload));
}

bool EndAgentEvents(std::chrono::milliseconds limit) {
    const auto end = Clock::now() + limit;
    const auto left = [end] {
        return std::max(std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()),
                        std::chrono::milliseconds(0));
    };
    {
        const CLockIt lock(s_NotificationSendMutex);
        while (s_NotificationThreadInitialized && left().count() > 0 &&
               (!s_NotificationQueue.empty() || s_NotificationUnderWay)) {
            s_NotificationIdleCond.WaitFor(s_NotificationSendMutex, left());
        }
        s_NotificationsEnded = true;
        s_NotificationSendCond.Broadcast();
    }
    const bool sent = !center() || center()->close(left());
    const CLockIt lock(s_NotificationSendMutex);
    while (s_NotificationThreadInitialized)
        s_NotificationIdleCond.Wait(s_NotificationSendMutex);
    const bool worked = s_NotificationQueue.empty();
    s_NotificationQueue.clear();
    return sent && worked;
}

void BeginAgentEvents() {
    const CLockIt lock(s_NotificationSendMutex);
    s_NotificationsEnded = false;
}

}  // namespace orv

#include "platform/linux/bus/BusLink.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <pthread.h>
#include <sys/eventfd.h>
#include <utility>

namespace platform {

using std::chrono::milliseconds;

BusLink::BusLink(std::string address, Listener& listener, Reporter reporter)
    : address_(std::move(address)),
      listener_(&listener),
      reporter_(std::move(reporter)),
      wakeUp_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    dbus_threads_init_default();
}

BusLink::~BusLink() {
    close(milliseconds(0));
}

/// With the mutex held. A session without a bus needs no thread.
void BusLink::start() {
    if (ended_ || thread_.joinable()) return;
    if (address_.empty()) {
        sayOnce(
            "There is no session bus, so panel and agent cannot hear each other. Install "
            "dbus-user-session and log in again, or set DBUS_SESSION_BUS_ADDRESS.");
        return;
    }
    thread_ = std::thread([this] { run(); });
}

void BusLink::sayOnce(const std::string& line) {
    if (reporter_ && !std::exchange(said_, true)) reporter_(line);
}

void BusLink::wake() {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(wakeUp_.get(), &one, sizeof one);
}

void BusLink::send(BusMessage signal) {
    const std::lock_guard lock(mutex_);
    start();
    if (ended_ || address_.empty()) return;
    if (!outbox_.add(std::move(signal))) {
        sayOnce(
            "100,000 notifications wait for the session bus. Further ones are lost until it is "
            "back.");
        return;
    }
    if (!ready_) return;
    if (outbox_.size() > 1) return;  // the thread waits for the socket to take more
    outbox_.pump(*connection_);
    if (!outbox_.empty()) wake();
}

int BusLink::subscribe(const BusTopic& topic) {
    const std::lock_guard lock(mutex_);
    start();
    const auto known = std::find_if(topics_.begin(), topics_.end(),
                                    [&](const Topic& other) { return other.topic == topic; });
    if (known != topics_.end()) {
        ++known->count;
        return known->number;
    }
    topics_.push_back({topic, ++lastTopic_, 1});
    if (ready_) addMatch(topic);
    return lastTopic_;
}

void BusLink::unsubscribe(int number) {
    const std::lock_guard lock(mutex_);
    const auto topic = std::find_if(topics_.begin(), topics_.end(),
                                    [&](const Topic& other) { return other.number == number; });
    if (topic == topics_.end() || --topic->count > 0) return;
    if (ready_) {
        connection_->call("RemoveMatch", MatchRule(topic->topic), [](DBusMessage*) {});
        wake();
    }
    topics_.erase(topic);
}

void BusLink::addMatch(const BusTopic& topic) {
    const std::string rule = MatchRule(topic);
    connection_->call("AddMatch", rule, [this, rule](DBusMessage* reply) {
        if (!reply) sayOnce("The session bus will not deliver these notifications: " + rule);
    });
    wake();
}

void BusLink::announce(const std::string& name) {
    const std::lock_guard lock(mutex_);
    start();
    if (!dbus_validate_bus_name(name.c_str(), nullptr)) return;
    names_.push_back(name);
    if (!ready_) return;
    connection_->requestName(name);
    wake();
}

// Waiting

bool BusLink::waitFor(Lock& lock, Clock::time_point end, const std::function<bool()>& condition) {
    changed_.wait_until(lock, end, [&] { return ended_ || condition(); });
    return !ended_ && condition();
}

bool BusLink::waitForRoom(milliseconds limit) {
    Lock lock(mutex_);
    if (!ended_ && outbox_.size() < comfortableBacklog) return true;
    return waitFor(lock, Clock::now() + limit,
                   [this] { return outbox_.size() <= comfortableBacklog / 2; });
}

bool BusLink::waitUntilSent(milliseconds limit) {
    Lock lock(mutex_);
    return waitFor(lock, Clock::now() + limit, [this] { return outbox_.empty(); });
}

bool BusLink::callAndWait(const char* member, const std::string& argument, Clock::time_point end,
                          BusConnection::Reply reply) {
    Lock lock(mutex_);
    start();
    if (address_.empty() || !waitFor(lock, end, [this] { return ready_; })) return false;
    ++waiting_;
    takeReadingBack();
    const auto answered = std::make_shared<bool>(false);
    connection_->call(member, argument,
                      [this, answered, reply = std::move(reply)](DBusMessage* message) {
                          reply(message);
                          *answered = true;
                          changed_.notify_all();
                      });
    wake();
    const bool done = waitFor(lock, end, [answered] { return *answered; });
    --waiting_;
    wake();
    return done;
}

bool BusLink::waitUntilListening(milliseconds limit) {
    // The bus works in order: once it answers this, it knows every rule.
    return callAndWait("NameHasOwner", DBUS_SERVICE_DBUS, Clock::now() + limit,
                       [](DBusMessage*) {});
}

bool BusLink::isAnnounced(const std::string& name, milliseconds limit) {
    if (!dbus_validate_bus_name(name.c_str(), nullptr)) return false;
    const auto owned = std::make_shared<dbus_bool_t>(false);
    const bool answered =
        callAndWait("NameHasOwner", name, Clock::now() + limit, [owned](DBusMessage* reply) {
            if (!reply) return;
            dbus_message_get_args(reply, nullptr, DBUS_TYPE_BOOLEAN, owned.get(),
                                  DBUS_TYPE_INVALID);
        });
    return answered && *owned;
}

bool BusLink::close(milliseconds limit) {
    const bool sent = waitUntilSent(limit);
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
        changed_.notify_all();
        wake();
    }
    if (thread_.joinable()) thread_.join();
    const std::lock_guard lock(mutex_);
    ready_ = false;
    connection_.reset();
    return sent;
}

}  // namespace platform

#include "platform/linux/bus/BusLink.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <pthread.h>
#include <sys/eventfd.h>
#include <utility>

namespace platform {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds shortestPause(50);
constexpr milliseconds longestPause(5000);
/// Who can wait does not let more signals than this wait for the bus.
constexpr std::size_t comfortableBacklog = 64;

}  // namespace

BusLink::BusLink(std::string address, Listener& listener, Reporter reporter)
    : address_(std::move(address)),
      listener_(&listener),
      reporter_(std::move(reporter)),
      wakeUp_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      pause_(shortestPause) {
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
        sayOnce("Too much waits for the session bus; what is sent now is lost.");
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
        if (!reply) sayOnce("The session bus refuses to deliver what this asks for: " + rule);
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
    const auto answered = std::make_shared<bool>(false);
    connection_->call(member, argument,
                      [this, answered, reply = std::move(reply)](DBusMessage* message) {
                          reply(message);
                          *answered = true;
                          changed_.notify_all();
                      });
    wake();
    return waitFor(lock, end, [answered] { return *answered; });
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

// The thread

void BusLink::run() {
    pthread_setname_np(pthread_self(), "session-bus");
    while (true) {
        connect();
        waitForWork();
        {
            const std::lock_guard lock(mutex_);
            if (ended_) return;
        }
        readSignals();
        loseConnection();
    }
}

/// Only this thread replaces the connection, so it looks without the lock; opening may take a
/// while.
void BusLink::connect() {
    if (connection_ || Clock::now() < nextAttempt_) return;
    std::string error;
    auto connection = BusConnection::open(
        address_, [this](DBusMessage* reply) { greeted(reply != nullptr); }, error);
    nextAttempt_ = Clock::now() + pause_;
    pause_ = std::min(pause_ * 2, longestPause);
    const std::lock_guard lock(mutex_);
    connection_ = std::move(connection);
    if (!connection_) {
        sayOnce("No session bus answers at " + address_ + " (" + error +
                "); trying again until one does. Panel and agent cannot hear each other without.");
    }
}

int BusLink::pollTimeout() const {
    if (connection_) return -1;
    const auto wait = std::chrono::ceil<milliseconds>(nextAttempt_ - Clock::now());
    return static_cast<int>(std::max<std::int64_t>(wait.count(), 0));
}

void BusLink::waitForWork() {
    std::vector<pollfd> polls;
    {
        const std::lock_guard lock(mutex_);
        if (connection_) polls = connection_->polls();
    }
    polls.push_back({wakeUp_.get(), POLLIN, 0});
    ::poll(polls.data(), polls.size(), pollTimeout());
    std::uint64_t ignored = 0;
    if (polls.back().revents) {
        [[maybe_unused]] const auto size = ::read(wakeUp_.get(), &ignored, sizeof ignored);
    }

    polls.pop_back();
    const std::lock_guard lock(mutex_);
    if (!connection_) return;
    connection_->handle(polls);
    if (!ready_) return;
    const bool hadRoom = outbox_.size() <= comfortableBacklog / 2;
    outbox_.pump(*connection_);
    const bool hasRoom = outbox_.size() <= comfortableBacklog / 2;
    if (outbox_.empty() || (hasRoom && !hadRoom)) changed_.notify_all();
}

void BusLink::readSignals() {
    int topic = 0;
    while (const BusMessage signal = nextSignal(topic)) {
        if (topic) listener_->received(topic, signal.get());
    }
}

BusMessage BusLink::nextSignal(int& topic) {
    const std::lock_guard lock(mutex_);
    if (!connection_ || ended_ || (ready_ && !listener_->hasRoom())) return nullptr;
    BusMessage signal = connection_->next();
    const Topic* known = signal ? topicOf(signal.get()) : nullptr;
    topic = known ? known->number : 0;
    return signal;
}

const BusLink::Topic* BusLink::topicOf(DBusMessage* signal) const {
    const auto found =
        std::find_if(topics_.begin(), topics_.end(), [signal](const Topic& candidate) {
            const BusTopic& topic = candidate.topic;
            return dbus_message_is_signal(signal, topic.interface.c_str(), topic.member.c_str()) &&
                   dbus_message_has_path(signal, topic.path.c_str());
        });
    return found == topics_.end() ? nullptr : &*found;
}

void BusLink::greeted(bool welcome) {
    if (!welcome) {
        refused_ = true;
        sayOnce("The session bus at " + address_ + " turns this process away.");
        return;
    }
    ready_ = true;
    said_ = false;
    greetedAt_ = Clock::now();
    for (const Topic& topic : topics_)
        addMatch(topic.topic);
    for (const std::string& name : names_)
        connection_->requestName(name);
    outbox_.pump(*connection_);
    changed_.notify_all();
    wake();
    listener_->connectionChanged(true);
}

/// What has arrived is delivered before.
void BusLink::loseConnection() {
    const std::lock_guard lock(mutex_);
    if (!connection_ || (connection_->isConnected() && !refused_)) return;
    if (ready_ && !listener_->hasRoom()) return;
    const bool kept = outbox_.rewind();
    connection_.reset();
    refused_ = false;
    if (!std::exchange(ready_, false)) {
        sayOnce("The session bus at " + address_ + " does not let this process in.");
        return;
    }
    const auto now = Clock::now();
    if (now - greetedAt_ > longestPause) pause_ = shortestPause;
    nextAttempt_ = now + pause_;
    sayOnce(kept ? "The session bus has gone; trying to reach it again until it is back."
                 : "The session bus ends the connection at a notification, which is dropped.");
    listener_->connectionChanged(false);
}

}  // namespace platform

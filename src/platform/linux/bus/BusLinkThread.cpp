#include <algorithm>
#include <cstdint>
#include <fcntl.h>
#include <pthread.h>
#include <utility>

#include "platform/linux/bus/BusLink.h"

// What the link's thread does, and the main thread in its place.

namespace platform {

namespace {

using std::chrono::milliseconds;

/// Parts of a message, 2 KiB each as the library reads them, until it counts as a large one.
constexpr int mostFruitlessReads = 64;

}  // namespace

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
        offerReading();
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
                "), so panel and agent cannot hear each other. It is tried again until one does.");
    }
}

int BusLink::pollTimeout() const {
    if (connection_) return ready_ && connection_->isConnected() && outbox_.canGoOn() ? 0 : -1;
    const auto wait = std::chrono::ceil<milliseconds>(nextAttempt_ - Clock::now());
    return static_cast<int>(std::max<std::int64_t>(wait.count(), 0));
}

void BusLink::waitForWork() {
    std::vector<pollfd> polls;
    int timeout = 0;
    {
        const std::lock_guard lock(mutex_);
        if (connection_) polls = connection_->polls(reader_ == Reader::Thread);
        timeout = pollTimeout();
    }
    polls.push_back({wakeUp_.get(), POLLIN, 0});
    ::poll(polls.data(), polls.size(), timeout);
    std::uint64_t ignored = 0;
    if (polls.back().revents) {
        [[maybe_unused]] const auto size = ::read(wakeUp_.get(), &ignored, sizeof ignored);
    }

    polls.pop_back();
    const std::lock_guard lock(mutex_);
    if (!connection_) return;
    const bool ends = std::any_of(polls.begin(), polls.end(), [](const pollfd& poll) {
        return poll.revents & (POLLHUP | POLLERR | POLLNVAL);
    });
    if (ends && !std::exchange(ending_, true)) return takeReadingBack();  // to read what is left
    connection_->handle(polls);
    if (!ready_) return;
    const bool hadRoom = outbox_.size() <= comfortableBacklog / 2;
    outbox_.pump(*connection_);
    const bool hasRoom = outbox_.size() <= comfortableBacklog / 2;
    if (outbox_.empty() || (hasRoom && !hadRoom)) changed_.notify_all();
}

/// Not while a large message is on its way, or somebody waits, who may be the main thread.
void BusLink::offerReading() {
    const std::lock_guard lock(mutex_);
    if (!ready_ || ending_ || reader_ != Reader::Thread) return;
    if (waiting_ > 0 || topics_.empty()) return;
    if (fruitlessReads_ > mostFruitlessReads || !listener_->hasRoom()) return;
    reader_ = Reader::Offered;
    listener_->readingOffered();
}

void BusLink::takeReadingBack() {
    reader_ = Reader::Thread;
}

FileDescriptor BusLink::acceptReading() {
    const std::lock_guard lock(mutex_);
    if (reader_ != Reader::Offered || !connection_) return FileDescriptor();
    FileDescriptor descriptor(::fcntl(connection_->descriptor(), F_DUPFD_CLOEXEC, 0));
    reader_ = descriptor ? Reader::MainThread : Reader::Thread;
    fruitlessReads_ = 0;
    return descriptor;
}

BusLink::Reading BusLink::readNext() {
    const std::lock_guard lock(mutex_);
    if (reader_ != Reader::MainThread || !connection_) return {};
    BusMessage signal = connection_->next();
    if (!signal) {
        connection_->read();
        signal = connection_->next();
    }
    if (signal) {
        fruitlessReads_ = 0;
        const int topic = numberOf(signal.get());
        return {Reading::Kind::Signal, std::move(signal), topic, connection_->hasNext()};
    }
    if (++fruitlessReads_ <= mostFruitlessReads && connection_->isConnected()) {
        return {Reading::Kind::Nothing};
    }
    takeReadingBack();
    wake();
    return {};
}

void BusLink::readSignals() {
    int topic = 0;
    while (const BusMessage signal = nextSignal(topic)) {
        if (topic) listener_->received(topic, signal.get());
    }
}

BusMessage BusLink::nextSignal(int& topic) {
    const std::lock_guard lock(mutex_);
    if (!connection_ || ended_ || reader_ != Reader::Thread) return nullptr;
    if (ready_ && !listener_->hasRoom()) return nullptr;
    BusMessage signal = connection_->next();
    if (signal) {
        topic = numberOf(signal.get());
        fruitlessReads_ = 0;
    }
    return signal;
}

int BusLink::numberOf(DBusMessage* signal) const {
    const auto found =
        std::find_if(topics_.begin(), topics_.end(), [signal](const Topic& candidate) {
            const BusTopic& topic = candidate.topic;
            return dbus_message_is_signal(signal, topic.interface.c_str(), topic.member.c_str()) &&
                   dbus_message_has_path(signal, topic.path.c_str());
        });
    return found == topics_.end() ? 0 : found->number;
}

void BusLink::greeted(bool welcome) {
    if (!welcome) {
        refused_ = true;
        sayOnce("The session bus at " + address_ +
                " refuses this process. Does it belong to another user?");
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
    takeReadingBack();
    fruitlessReads_ = 0;
    ending_ = false;
    refused_ = false;
    if (!std::exchange(ready_, false)) {
        sayOnce("The session bus at " + address_ +
                " ends each connection at once. Does it belong to another user?");
        return;
    }
    const auto now = Clock::now();
    if (now - greetedAt_ > longestPause) pause_ = shortestPause;
    nextAttempt_ = now + pause_;
    sayOnce(
        kept ? "The session bus has gone. It is tried again until it is back."
             : "The session bus ended three connections over one notification, which is dropped.");
    listener_->connectionChanged(false);
}

}  // namespace platform

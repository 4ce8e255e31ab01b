#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/FileDescriptor.h"
#include "platform/Services.h"
#include "platform/linux/bus/BusConnection.h"
#include "platform/linux/bus/BusTopic.h"
#include "platform/linux/bus/Outbox.h"

namespace platform {

/// A connection to the bus that comes back by itself, with a thread of its own. Any thread may call
/// what is public; nothing but the waits waits.
class BusLink {
 public:
    /// Called on the link's thread; must not call the link.
    class Listener {
     public:
        virtual ~Listener() = default;
        /// While there is none, nothing is read; `wake` tells when there is room again.
        [[nodiscard]] virtual bool hasRoom() = 0;
        virtual void received(int topic, DBusMessage* signal) = 0;
        virtual void connectionChanged(bool connected) = 0;
    };

    /// The listener outlives the link.
    BusLink(std::string address, Listener& listener, Reporter reporter);
    ~BusLink();
    BusLink(const BusLink&) = delete;
    BusLink& operator=(const BusLink&) = delete;

    void send(BusMessage signal);
    /// The number by which the listener knows the topic. Each call counts until `unsubscribe`.
    [[nodiscard]] int subscribe(const BusTopic& topic);
    void unsubscribe(int topic);
    void announce(const std::string& name);
    void wake();

    /// Until at most half of 64 signals wait; at once while fewer than 64 do.
    [[nodiscard]] bool waitForRoom(std::chrono::milliseconds limit);
    [[nodiscard]] bool waitUntilSent(std::chrono::milliseconds limit);
    [[nodiscard]] bool waitUntilListening(std::chrono::milliseconds limit);
    [[nodiscard]] bool isAnnounced(const std::string& name, std::chrono::milliseconds limit);
    bool close(std::chrono::milliseconds limit);

 private:
    using Clock = std::chrono::steady_clock;
    using Lock = std::unique_lock<std::mutex>;

    struct Topic {
        BusTopic topic;
        int number;
        int count;
    };

    void start();
    bool waitFor(Lock& lock, Clock::time_point end, const std::function<bool()>& condition);
    bool callAndWait(const char* member, const std::string& argument, Clock::time_point end,
                     BusConnection::Reply reply);

    // on the link's thread
    void run();
    void connect();
    void waitForWork();
    void readSignals();
    [[nodiscard]] BusMessage nextSignal(int& topic);
    void loseConnection();
    [[nodiscard]] int pollTimeout() const;

    // with the mutex held
    void greeted(bool welcome);
    void addMatch(const BusTopic& topic);
    [[nodiscard]] const Topic* topicOf(DBusMessage* signal) const;
    void sayOnce(const std::string& line);

    const std::string address_;
    Listener* listener_;
    Reporter reporter_;
    FileDescriptor wakeUp_;  // eventfd(2)
    std::thread thread_;

    // on the link's thread
    Clock::time_point nextAttempt_;
    std::chrono::milliseconds pause_;
    Clock::time_point greetedAt_;

    std::mutex mutex_;  // for what follows
    std::condition_variable changed_;
    std::unique_ptr<BusConnection> connection_;
    bool ready_ = false;  // the bus has greeted us
    bool refused_ = false;
    bool ended_ = false;
    bool said_ = false;
    Outbox outbox_;
    std::vector<Topic> topics_;
    int lastTopic_ = 0;
    std::vector<std::string> names_;
};

}  // namespace platform

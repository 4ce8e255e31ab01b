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

/// A connection to the bus that comes back by itself, with a thread of its own that connects,
/// writes and sees the connection end. It also reads, until it offers that to the main thread,
/// which is the shorter way for what arrives; it reads again while somebody waits for an answer,
/// and for a large message, whose reading takes long. Any thread may call what is public; nothing
/// but the waits waits.
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
        /// The main thread may call `acceptReading` once it has what was received before.
        virtual void readingOffered() = 0;
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

    /// Main thread: from now on `readNext` reads. Answers a descriptor to watch, a duplicate of the
    /// socket's; none when the offer has been withdrawn.
    [[nodiscard]] FileDescriptor acceptReading();
    struct Reading {
        enum class Kind { Signal, Nothing, Ended } kind = Kind::Ended;
        BusMessage signal = nullptr;
        /// 0 for none of those subscribed.
        int topic = 0;
        /// Another can be had at once: what is watched does not tell.
        bool more = false;
    };
    /// Main thread: takes the next signal. Ended when the link's thread reads again.
    [[nodiscard]] Reading readNext();

    /// Until at most half of 64 signals wait; at once while fewer than 64 do.
    [[nodiscard]] bool waitForRoom(std::chrono::milliseconds limit);
    [[nodiscard]] bool waitUntilSent(std::chrono::milliseconds limit);
    [[nodiscard]] bool waitUntilListening(std::chrono::milliseconds limit);
    [[nodiscard]] bool isAnnounced(const std::string& name, std::chrono::milliseconds limit);
    bool close(std::chrono::milliseconds limit);

 private:
    using Clock = std::chrono::steady_clock;
    using Lock = std::unique_lock<std::mutex>;

    static constexpr std::chrono::milliseconds shortestPause{50};
    static constexpr std::chrono::milliseconds longestPause{5000};
    /// Who can wait lets no more signals wait for the bus.
    static constexpr std::size_t comfortableBacklog = 64;

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
    void offerReading();
    void readSignals();
    [[nodiscard]] BusMessage nextSignal(int& topic);
    void loseConnection();

    // with the mutex held
    [[nodiscard]] int pollTimeout() const;
    void takeReadingBack();
    [[nodiscard]] int numberOf(DBusMessage* signal) const;
    void greeted(bool welcome);
    void addMatch(const BusTopic& topic);
    void sayOnce(const std::string& line);

    const std::string address_;
    Listener* listener_;
    Reporter reporter_;
    FileDescriptor wakeUp_;  // eventfd(2)
    std::thread thread_;

    // on the link's thread
    Clock::time_point nextAttempt_;
    std::chrono::milliseconds pause_ = shortestPause;
    Clock::time_point greetedAt_;

    std::mutex mutex_;  // for what follows
    std::condition_variable changed_;
    std::unique_ptr<BusConnection> connection_;
    bool ready_ = false;  // the bus has greeted us
    bool refused_ = false;
    bool ending_ = false;  // the bus has ended the connection; something may be left to read
    enum class Reader { Thread, Offered, MainThread } reader_ = Reader::Thread;
    int waiting_ = 0;         // for an answer of the bus
    int fruitlessReads_ = 0;  // of the main thread: the parts of a large message
    bool ended_ = false;
    bool said_ = false;
    Outbox outbox_;
    std::vector<Topic> topics_;
    int lastTopic_ = 0;
    std::vector<std::string> names_;
};

}  // namespace platform

#include "platform/linux/bus/DBusNotificationCenter.h"

#include <chrono>
#include <exception>
#include <map>
#include <mutex>
#include <set>
#include <utility>

#include "platform/linux/bus/BusBody.h"
#include "platform/linux/bus/BusLink.h"
#include "platform/linux/bus/Inbox.h"
#include "platform/linux/bus/Observers.h"

namespace platform {

/// Who observes what, and how what arrives gets there.
class DBusNotificationCenter::Core final : public BusLink::Listener,
                                           public std::enable_shared_from_this<Core> {
 public:
    Core(RunLoop& runLoop, std::string address, const Reporter& reporter)
        : reporter_(reporter),
          runLoop_(&runLoop),
          inbox_(std::make_shared<Inbox>(runLoop, [this] { link_.wake(); })),
          link_(std::move(address), *this, reporter) {}
    ~Core() override {
        stopReading();
        link_.close(std::chrono::milliseconds(0));
        inbox_->close();
    }
    Core(const Core&) = delete;
    Core& operator=(const Core&) = delete;

    BusLink& link() { return link_; }
    void post(const std::string& name, const std::string& object, const quelm::Dictionary& payload);
    std::unique_ptr<Observation> observe(const std::string& name, const std::string& object,
                                         Handler handler);
    std::unique_ptr<Observation> observeConnection(ConnectionHandler handler);

 private:
    struct TopicObservation;
    struct ConnectionObservation;

    // on the link's thread
    bool hasRoom() override { return inbox_->hasRoom(); }
    void received(int topic, DBusMessage* signal) override;
    void connectionChanged(bool connected) override;
    void readingOffered() override;

    // on the main thread
    void startReading();
    void readSome();
    void stopReading();
    void deliver(int topic, const quelm::Dictionary& payload);
    void guarded(const std::function<void()>& delivery) const;

    bool decode(DBusMessage* signal, quelm::Dictionary& payload, std::size_t& memory);

    Reporter reporter_;
    RunLoop* runLoop_;
    std::mutex faultsMutex_;
    std::set<std::pair<std::string, BusBodyFault>> faults_;  // that were said
    FileDescriptor readable_;                                // outlives its watch
    std::unique_ptr<RunLoop::Watch> watch_;
    bool goingOn_ = false;                         // another slice of reading is posted
    std::map<int, Observers<Handler>> observers_;  // by topic
    Observers<ConnectionHandler> connectionObservers_;
    std::shared_ptr<Inbox> inbox_;
    BusLink link_;
};

struct DBusNotificationCenter::Core::TopicObservation final : Observation {
    TopicObservation(std::weak_ptr<Core> center, int number,
                     std::shared_ptr<Observers<Handler>::Member> observer)
        : core(std::move(center)), topic(number), member(std::move(observer)) {}
    ~TopicObservation() override {
        const auto center = core.lock();
        if (!center) return;
        const auto observers = center->observers_.find(topic);
        observers->second.remove(member);
        if (observers->second.empty()) center->observers_.erase(observers);
        center->link_.unsubscribe(topic);
    }

    std::weak_ptr<Core> core;
    int topic;
    std::shared_ptr<Observers<Handler>::Member> member;
};

struct DBusNotificationCenter::Core::ConnectionObservation final : Observation {
    ConnectionObservation(std::weak_ptr<Core> center,
                          std::shared_ptr<Observers<ConnectionHandler>::Member> observer)
        : core(std::move(center)), member(std::move(observer)) {}
    ~ConnectionObservation() override {
        if (const auto center = core.lock()) center->connectionObservers_.remove(member);
    }

    std::weak_ptr<Core> core;
    std::shared_ptr<Observers<ConnectionHandler>::Member> member;
};

void DBusNotificationCenter::Core::post(const std::string& name, const std::string& object,
                                        const quelm::Dictionary& payload) {
    const auto topic = MakeBusTopic(name, object);
    BusMessage signal(topic ? dbus_message_new_signal(topic->path.c_str(), topic->interface.c_str(),
                                                      topic->member.c_str())
                            : nullptr);
    if (!signal) {
        if (reporter_) reporter_("The bus has no such name or object: " + name + ", " + object);
        return;
    }
    if (const auto fault = WriteBusBody(signal.get(), payload); fault != BusBodyFault::None) {
        if (reporter_) {
            reporter_("The notification " + name +
                      " cannot be sent: " + std::string(Describe(fault)) + ".");
        }
        return;
    }
    link_.send(std::move(signal));
}

std::unique_ptr<DistributedNotificationCenter::Observation> DBusNotificationCenter::Core::observe(
    const std::string& name, const std::string& object, Handler handler) {
    const auto topic = MakeBusTopic(name, object);
    if (!topic) {
        if (reporter_) reporter_("The bus has no such name or object: " + name + ", " + object);
        return nullptr;
    }
    const int number = link_.subscribe(*topic);
    return std::make_unique<TopicObservation>(weak_from_this(), number,
                                              observers_[number].add(std::move(handler)));
}

std::unique_ptr<DistributedNotificationCenter::Observation>
DBusNotificationCenter::Core::observeConnection(ConnectionHandler handler) {
    return std::make_unique<ConnectionObservation>(weak_from_this(),
                                                   connectionObservers_.add(std::move(handler)));
}

void DBusNotificationCenter::Core::received(int topic, DBusMessage* signal) {
    quelm::Dictionary payload;
    std::size_t memory = sizeof payload;
    if (!decode(signal, payload, memory)) return;
    inbox_->push([this, topic, payload = std::move(payload)] { deliver(topic, payload); }, memory);
}

bool DBusNotificationCenter::Core::decode(DBusMessage* signal, quelm::Dictionary& payload,
                                          std::size_t& memory) {
    const auto fault = ReadBusBody(signal, payload, memory);
    if (fault == BusBodyFault::None) return true;
    const char* member = dbus_message_get_member(signal);
    const std::lock_guard lock(faultsMutex_);
    if (faults_.emplace(member, fault).second && reporter_) {
        reporter_("A notification " + std::string(member) +
                  " from the bus is dropped, and so are " +
                  "others like it: " + std::string(Describe(fault)) + ".");
    }
    return false;
}

void DBusNotificationCenter::Core::readingOffered() {
    inbox_->push([this] { startReading(); }, 0);
}

void DBusNotificationCenter::Core::startReading() {
    FileDescriptor accepted = link_.acceptReading();
    if (!accepted) return;  // withdrawn, or an earlier offer's
    stopReading();
    readable_ = std::move(accepted);
    watch_ = runLoop_->watch(readable_.get(), [this] { readSome(); });
}

void DBusNotificationCenter::Core::stopReading() {
    watch_.reset();
    readable_.reset();
}

/// For a few milliseconds. What then is left, also to a modal session within a delivery, is posted.
void DBusNotificationCenter::Core::readSome() {
    using Kind = BusLink::Reading::Kind;
    const auto end = std::chrono::steady_clock::now() + Inbox::slice;
    do {
        const BusLink::Reading reading = link_.readNext();
        if (reading.kind == Kind::Ended) return stopReading();
        if (reading.kind == Kind::Nothing) return;
        if (reading.more && !std::exchange(goingOn_, true)) {
            inbox_->push(
                [this] {
                    goingOn_ = false;
                    readSome();
                },
                0);
        }
        quelm::Dictionary payload;
        std::size_t memory = 0;
        if (reading.topic && decode(reading.signal.get(), payload, memory))
            deliver(reading.topic, payload);
    } while (std::chrono::steady_clock::now() < end);
}

void DBusNotificationCenter::Core::connectionChanged(bool connected) {
    inbox_->push(
        [this, connected] {
            if (!connected) stopReading();
            guarded([&] { connectionObservers_.call(connected); });
        },
        0);
}

void DBusNotificationCenter::Core::deliver(int topic, const quelm::Dictionary& payload) {
    const auto observers = observers_.find(topic);
    if (observers == observers_.end()) return;
    guarded([&] { observers->second.call(payload); });
}

void DBusNotificationCenter::Core::guarded(const std::function<void()>& delivery) const {
    try {
        delivery();
    } catch (const std::exception& error) {
        if (reporter_) reporter_(std::string("A notification's observer failed: ") + error.what());
    }
}

DBusNotificationCenter::DBusNotificationCenter(RunLoop& runLoop, std::string address,
                                               const Reporter& reporter)
    : core_(std::make_shared<Core>(runLoop, std::move(address), reporter)) {}
DBusNotificationCenter::~DBusNotificationCenter() = default;

void DBusNotificationCenter::post(const std::string& name, const std::string& object,
                                  const quelm::Dictionary& payload) {
    core_->post(name, object, payload);
}
std::unique_ptr<DistributedNotificationCenter::Observation> DBusNotificationCenter::observe(
    const std::string& name, const std::string& object, Handler handler) {
    return core_->observe(name, object, std::move(handler));
}
std::unique_ptr<DistributedNotificationCenter::Observation>
DBusNotificationCenter::observeConnection(ConnectionHandler handler) {
    return core_->observeConnection(std::move(handler));
}
void DBusNotificationCenter::announce(const std::string& name) {
    core_->link().announce(name);
}
bool DBusNotificationCenter::waitForRoom(std::chrono::milliseconds limit) {
    return core_->link().waitForRoom(limit);
}
bool DBusNotificationCenter::waitUntilSent(std::chrono::milliseconds limit) {
    return core_->link().waitUntilSent(limit);
}
bool DBusNotificationCenter::waitUntilListening(std::chrono::milliseconds limit) {
    return core_->link().waitUntilListening(limit);
}
bool DBusNotificationCenter::isAnnounced(const std::string& name, std::chrono::milliseconds limit) {
    return core_->link().isAnnounced(name, limit);
}
bool DBusNotificationCenter::close(std::chrono::milliseconds limit) {
    return core_->link().close(limit);
}

}  // namespace platform

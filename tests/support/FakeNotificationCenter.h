#pragma once

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/DistributedNotificationCenter.h"

namespace test_support {

/// Records what is posted. A test delivers by hand, and can hold back what is sent.
class FakeNotificationCenter final : public platform::DistributedNotificationCenter {
 public:
    struct Posted {
        std::string name;
        std::string object;
        quelm::Dictionary payload;
    };

    void post(const std::string& name, const std::string& object,
              const quelm::Dictionary& payload) override {
        const std::lock_guard lock(mutex_);
        if (std::exchange(failing_, false)) throw std::runtime_error("the next post fails");
        posted_.push_back({name, object, payload});
    }
    [[nodiscard]] std::unique_ptr<Observation> observe(const std::string& name,
                                                       const std::string& object,
                                                       Handler handler) override {
        return add({name, object, std::move(handler), nullptr});
    }
    [[nodiscard]] std::unique_ptr<Observation> observeConnection(
        ConnectionHandler handler) override {
        return add({"", "", nullptr, std::move(handler)});
    }
    void announce(const std::string& name) override { announced.push_back(name); }
    bool waitForRoom(std::chrono::milliseconds limit) override { return waitUntilSent(limit); }
    bool waitUntilSent(std::chrono::milliseconds limit) override {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, limit, [this] { return closed_ || !held_; }) && !closed_;
    }
    [[nodiscard]] bool waitUntilListening(std::chrono::milliseconds) override { return true; }
    [[nodiscard]] bool isAnnounced(const std::string& name, std::chrono::milliseconds) override {
        return std::find(announced.begin(), announced.end(), name) != announced.end();
    }
    bool close(std::chrono::milliseconds) override {
        const std::lock_guard lock(mutex_);
        changed_.notify_all();
        return !std::exchange(closed_, true) && !held_;
    }

    [[nodiscard]] std::vector<Posted> posted() {
        const std::lock_guard lock(mutex_);
        return posted_;
    }
    /// The bus is away: what is posted stays under way.
    void hold(bool held) {
        const std::lock_guard lock(mutex_);
        held_ = held;
        changed_.notify_all();
    }
    void failNextPost() {
        const std::lock_guard lock(mutex_);
        failing_ = true;
    }
    void deliver(const std::string& name, const std::string& object,
                 const quelm::Dictionary& payload) {
        for (const auto& observer : std::vector(observers_)) {
            if (observer->name == name && observer->object == object) observer->handler(payload);
        }
    }
    void connect(bool connected) {
        for (const auto& observer : std::vector(observers_)) {
            if (observer->connectionHandler) observer->connectionHandler(connected);
        }
    }

    std::vector<std::string> announced;

 private:
    struct Observer {
        std::string name;
        std::string object;
        Handler handler;
        ConnectionHandler connectionHandler;
    };
    struct Handle final : Observation {
        Handle(FakeNotificationCenter& owner, std::shared_ptr<Observer> member)
            : center(&owner), observer(std::move(member)) {}
        ~Handle() override { std::erase(center->observers_, observer); }
        FakeNotificationCenter* center;
        std::shared_ptr<Observer> observer;
    };

    std::unique_ptr<Observation> add(Observer observer) {
        observers_.push_back(std::make_shared<Observer>(std::move(observer)));
        return std::make_unique<Handle>(*this, observers_.back());
    }

    std::vector<std::shared_ptr<Observer>> observers_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Posted> posted_;
    bool held_ = false;
    bool failing_ = false;
    bool closed_ = false;
};

}  // namespace test_support

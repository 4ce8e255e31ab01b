#include "platform/LocalNotifications.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace platform {

namespace {

using Key = std::pair<std::string, const void*>;

struct Observer {
    Key key;
    LocalNotifications::Handler handler;
    bool ended = false;

    [[nodiscard]] bool wants(const std::string& name, const void* sender) const {
        return !ended && key.first == name && (key.second == nullptr || key.second == sender);
    }
};
using Observers = std::vector<std::shared_ptr<Observer>>;

}  // namespace

struct LocalNotifications::State {
    Observers observers;
    std::map<Key, quelm::Dictionary> waiting;

    void deliver(const std::string& name, const void* sender, const quelm::Dictionary& userInfo) {
        for (const auto& observer : Observers(observers)) {
            if (observer->wants(name, sender)) observer->handler(userInfo);
        }
    }
    void deliverWaiting(const Key& key) {
        auto node = waiting.extract(key);
        if (!node.empty()) deliver(key.first, key.second, node.mapped());
    }
};

LocalNotifications::LocalNotifications(RunLoop& runLoop)
    : state_(std::make_shared<State>()), runLoop_(runLoop) {}

LocalNotifications::~LocalNotifications() = default;

std::unique_ptr<LocalNotifications::Observation> LocalNotifications::observe(std::string name,
                                                                             const void* sender,
                                                                             Handler handler) {
    struct Handle final : Observation {
        Handle(std::weak_ptr<State> owner, std::shared_ptr<Observer> member)
            : state(std::move(owner)), observer(std::move(member)) {}
        ~Handle() override {
            observer->ended = true;
            if (const auto held = state.lock()) std::erase(held->observers, observer);
        }
        std::weak_ptr<State> state;
        std::shared_ptr<Observer> observer;
    };
    auto& observers = state_->observers;
    observers.push_back(
        std::make_shared<Observer>(Observer{{std::move(name), sender}, std::move(handler)}));
    return std::make_unique<Handle>(state_, observers.back());
}

void LocalNotifications::post(const std::string& name, const void* sender,
                              const quelm::Dictionary& userInfo) {
    state_->deliver(name, sender, userInfo);
}

void LocalNotifications::postSoon(const std::string& name, const void* sender,
                                  quelm::Dictionary userInfo) {
    const Key key{name, sender};
    const bool isNew = state_->waiting.insert_or_assign(key, std::move(userInfo)).second;
    if (!isNew) return;
    runLoop_.post([held = std::weak_ptr(state_), key] {
        if (const auto state = held.lock()) state->deliverWaiting(key);
    });
}

}  // namespace platform

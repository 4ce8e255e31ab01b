#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "agentlink/AgentEventTarget.h"
#include "platform/LocalNotifications.h"

namespace orv {

/// Those who are told of one object's local notifications of one name. Clients remove themselves
/// before they go away. Main thread only.
class LocalClients {
 public:
    LocalClients(platform::LocalNotifications& notifications, std::string name, const void* sender)
        : notifications_(notifications), name_(std::move(name)), sender_(sender) {}

    template <class Target>
    void add(Target* target, const Selector<Target>& selector) {
        auto call = [target, perform = selector.perform](const quelm::Dictionary& userInfo) {
            perform(target, userInfo);
        };
        clients_.push_back({target, notifications_.observe(name_, sender_, std::move(call))});
    }
    /// Removes all of the target's registrations.
    void remove(const void* target) {
        std::erase_if(clients_, [target](const Client& client) { return client.target == target; });
    }

    void post(const quelm::Dictionary& userInfo) { notifications_.post(name_, sender_, userInfo); }
    void postSoon(quelm::Dictionary userInfo) {
        notifications_.postSoon(name_, sender_, std::move(userInfo));
    }

 private:
    struct Client {
        const void* target;
        std::unique_ptr<platform::LocalNotifications::Observation> observation;
    };

    platform::LocalNotifications& notifications_;
    std::string name_;
    const void* sender_;
    std::vector<Client> clients_;
};

}  // namespace orv

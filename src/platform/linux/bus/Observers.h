#pragma once

#include <memory>
#include <vector>

#include "platform/DistributedNotificationCenter.h"

namespace platform {

/// Who is told of one thing, in the order in which they came. Main thread only; members may come
/// and go while they are called.
template <class Handler>
class Observers {
 public:
    struct Member {
        Handler handler;
        bool active = true;
    };

    [[nodiscard]] std::shared_ptr<Member> add(Handler handler) {
        members_.push_back(std::make_shared<Member>(Member{std::move(handler)}));
        return members_.back();
    }
    void remove(const std::shared_ptr<Member>& member) {
        member->active = false;
        std::erase(members_, member);
    }
    [[nodiscard]] bool empty() const { return members_.empty(); }

    /// The last member may leave while it is called, and this object go with it.
    template <class... Arguments>
    void call(const Arguments&... arguments) const {
        const auto members = members_;
        for (const auto& member : members) {
            if (member->active) member->handler(arguments...);
        }
    }

 private:
    std::vector<std::shared_ptr<Member>> members_;
};

}  // namespace platform

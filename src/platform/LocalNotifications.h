#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/RunLoop.h"
#include "platform/Value.h"

namespace platform {

/// Notifications within this process, by name and sender. Main thread only.
class LocalNotifications {
 public:
    using Handler = std::function<void(const quelm::Dictionary& userInfo)>;

    /// Ends with its handle, also while its handler is called.
    class Observation {
     public:
        virtual ~Observation() = default;
    };

    explicit LocalNotifications(RunLoop& runLoop);
    LocalNotifications(const LocalNotifications&) = delete;
    LocalNotifications& operator=(const LocalNotifications&) = delete;
    ~LocalNotifications();

    /// Handlers are called in the order in which they came. A sender is any address; null means
    /// every sender.
    [[nodiscard]] std::unique_ptr<Observation> observe(std::string name, const void* sender,
                                                       Handler handler);

    /// Calls the handlers before it returns.
    void post(const std::string& name, const void* sender, const quelm::Dictionary& userInfo);

    /// Posts as soon as the run loop has time. One that waits with the same name and sender is
    /// replaced, so that of a burst the last arrives.
    void postSoon(const std::string& name, const void* sender, quelm::Dictionary userInfo);

 private:
    struct State;
    std::shared_ptr<State> state_;
    RunLoop& runLoop_;
};

}  // namespace platform

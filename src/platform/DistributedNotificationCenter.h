#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "platform/Value.h"

namespace platform {

/// Notifications to every process of the session: a name ("com.quelm.client.AgentEvent"), an
/// object string on which observers filter, and a dictionary. One sender's notifications arrive in
/// the order in which they were posted, at the sender's own observers too.
///
/// While the service is away, what is posted is kept; it goes out once and in order when the
/// service is back, and every observation and announcement is in force again. What was under way
/// when the service went may be lost.
class DistributedNotificationCenter {
 public:
    using Handler = std::function<void(const quelm::Dictionary& payload)>;
    using ConnectionHandler = std::function<void(bool connected)>;

    /// Ends with its handle, which the main thread destroys.
    class Observation {
     public:
        virtual ~Observation() = default;
    };

    virtual ~DistributedNotificationCenter() = default;

    /// Any thread; never waits. What no notification can carry is dropped with a line in the log.
    virtual void post(const std::string& name, const std::string& object,
                      const quelm::Dictionary& payload) = 0;

    /// Main thread, where the handler is called as well.
    [[nodiscard]] virtual std::unique_ptr<Observation> observe(const std::string& name,
                                                               const std::string& object,
                                                               Handler handler) = 0;
    /// Told on the main thread when the service comes and when it goes. After it came back, both
    /// ends report their state anew.
    [[nodiscard]] virtual std::unique_ptr<Observation> observeConnection(
        ConnectionHandler handler) = 0;

    /// Makes this process known under a name ("com.quelm.client.Agent.account_1") while it lives.
    virtual void announce(const std::string& name) = 0;

    // Each waits, so none is for the main thread of a program with windows. False when the time
    // ran out or the center was closed.

    /// Until few enough notifications wait for the service to take one more.
    virtual bool waitForRoom(std::chrono::milliseconds limit) = 0;
    /// Until all that was posted has left this process.
    virtual bool waitUntilSent(std::chrono::milliseconds limit) = 0;
    /// Until every observation so far is in force.
    [[nodiscard]] virtual bool waitUntilListening(std::chrono::milliseconds limit) = 0;
    /// Whether some process is known under the name.
    [[nodiscard]] virtual bool isAnnounced(const std::string& name,
                                           std::chrono::milliseconds limit) = 0;

    /// Sends what is posted, for at most `limit`, and ends: waits end, and later posts are dropped.
    /// False when something was left, or it was closed before.
    virtual bool close(std::chrono::milliseconds limit) = 0;
};

}  // namespace platform

#pragma once

#include <memory>
#include <string>

#include "platform/DistributedNotificationCenter.h"
#include "platform/RunLoop.h"
#include "platform/Services.h"

namespace platform {

/// Notifications as signals on a D-Bus message bus; BusTopic.h and BusBody.h say how they look
/// there. A thread of its own begins with the first use; a lost bus is tried again after 50 ms,
/// then after twice as long each time, up to 5 s.
///
/// Bounds: an observer that does not keep up lets about 9 MiB wait here, and the bus keeps the
/// rest, up to its own limit (max_outgoing_bytes of its configuration, 1 GB on Debian), beyond
/// which it drops. Bodies are bounded by `BusBodyLimits`. What cannot be read is dropped, with one
/// line for each name and fault.
class DBusNotificationCenter final : public DistributedNotificationCenter {
 public:
    /// An empty address stands for a session without a bus. The run loop outlives the center.
    DBusNotificationCenter(RunLoop& runLoop, std::string address, const Reporter& reporter);
    ~DBusNotificationCenter() override;

    void post(const std::string& name, const std::string& object,
              const quelm::Dictionary& payload) override;
    [[nodiscard]] std::unique_ptr<Observation> observe(const std::string& name,
                                                       const std::string& object,
                                                       Handler handler) override;
    [[nodiscard]] std::unique_ptr<Observation> observeConnection(
        ConnectionHandler handler) override;
    void announce(const std::string& name) override;
    bool waitForRoom(std::chrono::milliseconds limit) override;
    bool waitUntilSent(std::chrono::milliseconds limit) override;
    [[nodiscard]] bool waitUntilListening(std::chrono::milliseconds limit) override;
    [[nodiscard]] bool isAnnounced(const std::string& name,
                                   std::chrono::milliseconds limit) override;
    bool close(std::chrono::milliseconds limit) override;

 private:
    class Core;
    std::shared_ptr<Core> core_;
};

}  // namespace platform

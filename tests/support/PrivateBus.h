#pragma once

#include <string>

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

namespace test_support {

/// A session bus of the test's own, on which no service starts by itself. It ends with the object
/// and with the test.
class PrivateBus {
 public:
    /// Starts the bus; it takes connections as soon as this returns.
    PrivateBus();

    /// Whether dbus-daemon came up.
    [[nodiscard]] bool runs() const { return runs_; }
    /// For DBUS_SESSION_BUS_ADDRESS; the same before and after a restart.
    [[nodiscard]] const std::string& address() const { return address_; }
    /// A folder that lives as long as the bus, for what the services on it need.
    [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }

    /// As when the bus crashes.
    void stop();
    /// At the same address.
    bool start();
    /// To freeze it (SIGSTOP) and wake it up (SIGCONT).
    void signal(int number) const { daemon_.signal(number); }

 private:
    TemporaryFolder folder_;
    std::string address_ = "unix:path=" + folder_ / "bus";
    ChildProcess daemon_;
    bool runs_ = false;
};

}  // namespace test_support

#pragma once

#include <string>

namespace platform {

/// The session bus: $DBUS_SESSION_BUS_ADDRESS, else the socket "bus" in $XDG_RUNTIME_DIR; empty
/// when neither is set. No bus is ever started.
[[nodiscard]] std::string SessionBusAddress();

}  // namespace platform

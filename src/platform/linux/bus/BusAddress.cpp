#include "platform/linux/bus/BusAddress.h"

#include <cstdlib>
#include <dbus/dbus.h>
#include <memory>

namespace platform {

std::string SessionBusAddress() {
    const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (address && *address) return address;
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    if (!folder || *folder != '/') return "";
    const std::string socket = std::string(folder) + "/bus";
    const std::unique_ptr<char, decltype(&dbus_free)> escaped(
        dbus_address_escape_value(socket.c_str()), dbus_free);
    return escaped ? "unix:path=" + std::string(escaped.get()) : "";
}

}  // namespace platform

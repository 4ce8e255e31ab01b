#pragma once

#include <dbus/dbus.h>
#include <memory>

namespace platform {

struct BusMessageRelease {
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using BusMessage = std::unique_ptr<DBusMessage, BusMessageRelease>;

}  // namespace platform

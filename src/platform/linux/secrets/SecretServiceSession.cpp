#include "platform/linux/secrets/SecretServiceSession.h"

#include <algorithm>
#include <array>

#include "platform/linux/secrets/SecretServiceTypes.h"

namespace platform {

namespace {

using Status = Keychain::Status;

/// Errors of the bus by which no service answers.
constexpr auto absences = std::to_array<int>(
    {G_DBUS_ERROR_SERVICE_UNKNOWN, G_DBUS_ERROR_NAME_HAS_NO_OWNER, G_DBUS_ERROR_NO_REPLY,
     G_DBUS_ERROR_DISCONNECTED, G_DBUS_ERROR_NO_SERVER, G_DBUS_ERROR_TIMEOUT,
     G_DBUS_ERROR_TIMED_OUT, G_DBUS_ERROR_SPAWN_EXEC_FAILED, G_DBUS_ERROR_SPAWN_CHILD_EXITED,
     G_DBUS_ERROR_SPAWN_CHILD_SIGNALED, G_DBUS_ERROR_SPAWN_FAILED,
     G_DBUS_ERROR_SPAWN_SERVICE_NOT_FOUND});

Status statusOf(const GError& error) {
    if (error.domain == SECRET_ERROR) {
        if (error.code == SECRET_ERROR_IS_LOCKED) return Status::Locked;
        return error.code == SECRET_ERROR_NO_SUCH_OBJECT ? Status::NotFound : Status::Failed;
    }
    if (error.domain == G_DBUS_ERROR) {
        return std::ranges::count(absences, error.code) > 0 ? Status::Unavailable : Status::Failed;
    }
    if (error.domain != G_IO_ERROR || error.code == G_IO_ERROR_DBUS_ERROR) return Status::Failed;
    // a prompt that the user dismisses is a cancelled call; the others are the connection's own
    return error.code == G_IO_ERROR_CANCELLED ? Status::Locked : Status::Unavailable;
}

}  // namespace

SecretServiceSession::SecretServiceSession(const std::string& address,
                                           std::optional<std::chrono::milliseconds> limit)
    : deadline_(limit) {
    const std::string bus = busAddress(address);
    if (!bus.empty()) open(bus, !limit);
}

std::string SecretServiceSession::busAddress(const std::string& address) {
    if (!address.empty()) return address;
    const GTextHandle session(
        g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, cancellable(), error()));
    // GLib's last resort would start a bus that nobody else is on
    if (!session || g_str_has_prefix(session.get(), "autolaunch:") != FALSE) return {};
    return session.get();
}

void SecretServiceSession::open(const std::string& address, bool mayPrompt) {
    constexpr auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    connection_.reset(g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr,
                                                             cancellable(), error()));
    if (!connection_) return;
    const GType type = mayPrompt ? PromptingServiceType() : PromptlessServiceType();
    const gpointer made =
        g_initable_new(type, cancellable(), error(), "g-connection", connection_.get(), "flags",
                       SECRET_SERVICE_OPEN_SESSION, nullptr);
    service_.reset(static_cast<SecretService*>(made));
}

Keychain::Status SecretServiceSession::status() const {
    if (!service_ || (error_ && deadline_.passed())) return Status::Unavailable;
    return error_ ? statusOf(*error_) : Status::Done;
}

std::string SecretServiceSession::problem() const {
    if (deadline_.passed()) return "it does not answer in time";
    return error_ ? error_->message : "there is no session bus";
}

}  // namespace platform

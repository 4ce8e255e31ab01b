#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <poll.h>
#include <span>
#include <string>
#include <vector>

#include "platform/linux/bus/BusMessage.h"

namespace platform {

/// One connection to a message bus that never blocks: it says what to poll for, and works when told
/// what the poll found. Not thread-safe: its owner locks.
class BusConnection {
 public:
    /// `reply` is null when the bus answered with an error.
    using Reply = std::function<void(DBusMessage* reply)>;

    /// Begins to connect and to greet the bus; `greeted` follows. Null, and why, when nothing
    /// listens at the address.
    [[nodiscard]] static std::unique_ptr<BusConnection> open(const std::string& address,
                                                             Reply greeted, std::string& error);
    ~BusConnection();
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;

    [[nodiscard]] bool isConnected() const;
    /// Whether a message has not left this process altogether.
    [[nodiscard]] bool hasUnsent() const;
    /// Writes as much of it as the socket takes.
    void send(DBusMessage* message);
    /// Calls the bus itself (the interface org.freedesktop.DBus).
    void call(const char* member, const std::string& argument, Reply reply);
    /// Asks for a name, and answers `reply`; nobody waits in line for a name that is taken.
    void requestName(const std::string& name);

    /// The socket's, while it is connected.
    [[nodiscard]] int descriptor() const;
    /// What to wait for: that the connection ends, that it can be written if there is something to
    /// write, and with `reading`, that something has come.
    [[nodiscard]] std::vector<pollfd> polls(bool reading) const;
    /// Reads and writes as the poll of `polls` found.
    void handle(std::span<const pollfd> polled);
    /// Reads a little, if something has come.
    void read();
    /// The next message that is no reply to one of the calls; replies are dealt with on the way.
    [[nodiscard]] BusMessage next();
    /// Whether `next` has another without reading.
    [[nodiscard]] bool hasNext() const;

 private:
    struct Close {
        void operator()(DBusConnection* connection) const;
    };
    struct Watches;

    BusConnection(DBusConnection* connection, std::unique_ptr<Watches> watches);
    void sendCall(BusMessage message, Reply reply);
    bool takeReply(DBusMessage* message);

    std::unique_ptr<Watches> watches_;  // outlives the connection, which calls it
    std::unique_ptr<DBusConnection, Close> connection_;
    std::map<dbus_uint32_t, Reply> replies_;  // by serial
};

}  // namespace platform

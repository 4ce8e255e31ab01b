#include "platform/linux/bus/BusConnection.h"

#include <utility>

namespace platform {

/// What the library wants to know about its socket.
struct BusConnection::Watches {
    std::vector<DBusWatch*> all;

    static dbus_bool_t add(DBusWatch* watch, void* data) {
        static_cast<Watches*>(data)->all.push_back(watch);
        return 1;
    }
    static void remove(DBusWatch* watch, void* data) {
        std::erase(static_cast<Watches*>(data)->all, watch);
    }
    /// Whether a watch is enabled is asked before each poll.
    static void toggled(DBusWatch*, void*) {}
};

void BusConnection::Close::operator()(DBusConnection* connection) const {
    dbus_connection_close(connection);
    dbus_connection_unref(connection);
}

BusConnection::BusConnection(DBusConnection* connection, std::unique_ptr<Watches> watches)
    : watches_(std::move(watches)), connection_(connection) {}
BusConnection::~BusConnection() = default;

std::unique_ptr<BusConnection> BusConnection::open(const std::string& address, Reply greeted,
                                                   std::string& error) {
    // The process decides about this signal; the library asks for none.
    dbus_connection_set_change_sigpipe(false);
    DBusError why = DBUS_ERROR_INIT;
    DBusConnection* raw = dbus_connection_open_private(address.c_str(), &why);
    if (!raw) {
        error = why.message ? why.message : "no memory";
        dbus_error_free(&why);
        return nullptr;
    }
    // While this many bytes of messages wait to be taken, nothing more is read.
    constexpr long mostReceived = 1L << 20U;
    dbus_connection_set_max_received_size(raw, mostReceived);
    dbus_connection_set_exit_on_disconnect(raw, false);

    std::unique_ptr<BusConnection> result(new BusConnection(raw, std::make_unique<Watches>()));
    dbus_connection_set_watch_functions(raw, Watches::add, Watches::remove, Watches::toggled,
                                        result->watches_.get(), nullptr);
    result->sendCall(BusMessage(dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS,
                                                             DBUS_INTERFACE_DBUS, "Hello")),
                     std::move(greeted));
    return result;
}

bool BusConnection::isConnected() const {
    return dbus_connection_get_is_connected(connection_.get());
}

bool BusConnection::hasUnsent() const {
    return dbus_connection_has_messages_to_send(connection_.get());
}

void BusConnection::send(DBusMessage* message) {
    dbus_connection_send(connection_.get(), message, nullptr);
}

void BusConnection::call(const char* member, const std::string& argument, Reply reply) {
    BusMessage message(dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS,
                                                    DBUS_INTERFACE_DBUS, member));
    const char* text = argument.c_str();
    dbus_message_append_args(message.get(), DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
    sendCall(std::move(message), std::move(reply));
}

void BusConnection::requestName(const std::string& name) {
    BusMessage message(dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS,
                                                    DBUS_INTERFACE_DBUS, "RequestName"));
    const char* text = name.c_str();
    const dbus_uint32_t flags = DBUS_NAME_FLAG_DO_NOT_QUEUE;
    dbus_message_append_args(message.get(), DBUS_TYPE_STRING, &text, DBUS_TYPE_UINT32, &flags,
                             DBUS_TYPE_INVALID);
    sendCall(std::move(message), [](DBusMessage*) {});
}

void BusConnection::sendCall(BusMessage message, Reply reply) {
    dbus_uint32_t serial = 0;
    dbus_connection_send(connection_.get(), message.get(), &serial);
    replies_[serial] = std::move(reply);
}

int BusConnection::descriptor() const {
    int descriptor = -1;
    return dbus_connection_get_unix_fd(connection_.get(), &descriptor) ? descriptor : -1;
}

std::vector<pollfd> BusConnection::polls(bool reading) const {
    std::vector<pollfd> polls;
    for (DBusWatch* watch : watches_->all) {
        const unsigned flags = dbus_watch_get_enabled(watch) ? dbus_watch_get_flags(watch) : 0;
        short events = 0;
        if (reading && (flags & DBUS_WATCH_READABLE)) events |= POLLIN;
        if (flags & DBUS_WATCH_WRITABLE) events |= POLLOUT;
        polls.push_back({flags ? dbus_watch_get_unix_fd(watch) : -1, events, 0});
    }
    return polls;
}

void BusConnection::read() {
    for (DBusWatch* watch : watches_->all) {
        if (!dbus_watch_get_enabled(watch) || !(dbus_watch_get_flags(watch) & DBUS_WATCH_READABLE))
            continue;
        dbus_watch_handle(watch, DBUS_WATCH_READABLE);
        return;  // the watches may have changed
    }
}

void BusConnection::handle(std::span<const pollfd> polled) {
    const std::vector<DBusWatch*> watches = watches_->all;
    if (polled.size() != watches.size()) return;  // the connection ended meanwhile
    for (std::size_t i = 0; i < watches.size() && watches_->all == watches; ++i) {
        const short found = polled[i].revents;
        unsigned flags = 0;
        if (found & POLLIN) flags |= DBUS_WATCH_READABLE;
        if (found & POLLOUT) flags |= DBUS_WATCH_WRITABLE;
        if (found & POLLHUP) flags |= DBUS_WATCH_HANGUP;
        if (found & (POLLERR | POLLNVAL)) flags |= DBUS_WATCH_ERROR;
        if (flags) dbus_watch_handle(watches[i], flags);
    }
}

bool BusConnection::hasNext() const {
    return dbus_connection_get_dispatch_status(connection_.get()) == DBUS_DISPATCH_DATA_REMAINS;
}

BusMessage BusConnection::next() {
    while (BusMessage message{dbus_connection_pop_message(connection_.get())}) {
        if (!takeReply(message.get())) return message;
    }
    return nullptr;
}

bool BusConnection::takeReply(DBusMessage* message) {
    const int type = dbus_message_get_type(message);
    if (type != DBUS_MESSAGE_TYPE_METHOD_RETURN && type != DBUS_MESSAGE_TYPE_ERROR) return false;
    if (auto found = replies_.extract(dbus_message_get_reply_serial(message))) {
        found.mapped()(type == DBUS_MESSAGE_TYPE_ERROR ? nullptr : message);
    }
    return true;
}

}  // namespace platform

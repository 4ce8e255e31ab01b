#include <cstring>
#include <dbus/dbus.h>
#include <unistd.h>

#include "Traffic.h"

namespace {

DBusConnection* open(const std::string& address) {
    DBusConnection* connection = dbus_connection_open_private(address.c_str(), nullptr);
    if (!connection || !dbus_bus_register(connection, nullptr)) ::_exit(1);
    return connection;
}

void close(DBusConnection* connection) {
    dbus_connection_flush(connection);
    dbus_connection_close(connection);
    dbus_connection_unref(connection);
}

DBusMessage* makeSignal(const char* member) {
    return dbus_message_new_signal("/com/corvanta/orv", "com.quelm.client", member);
}

void add(DBusMessageIter* entries, const char* key, int type, const void* value) {
    const char signature[] = {static_cast<char>(type), '\0'};
    DBusMessageIter entry, variant;
    dbus_message_iter_open_container(entries, DBUS_TYPE_DICT_ENTRY, nullptr, &entry);
    dbus_message_iter_append_basic(&entry, DBUS_TYPE_STRING, &key);
    dbus_message_iter_open_container(&entry, DBUS_TYPE_VARIANT, signature, &variant);
    dbus_message_iter_append_basic(&variant, type, value);
    dbus_message_iter_close_container(&entry, &variant);
    dbus_message_iter_close_container(entries, &entry);
}

/// The ten keys, with this text in six of them.
DBusMessage* makeEvent(std::int64_t number, const char* text) {
    DBusMessage* signal = makeSignal("AgentEvent");
    DBusMessageIter body, entries;
    dbus_message_iter_init_append(signal, &body);
    dbus_message_iter_open_container(&body, DBUS_TYPE_ARRAY, "{sv}", &entries);
    const char* agent = "1";
    const char* event = "store_status";
    const std::int64_t now = Now();
    add(&entries, "agent-id", DBUS_TYPE_STRING, &agent);
    add(&entries, "event_name", DBUS_TYPE_STRING, &event);
    add(&entries, numberKey, DBUS_TYPE_INT64, &number);
    add(&entries, sentKey, DBUS_TYPE_INT64, &now);
    for (const char* key : textKeys)
        add(&entries, key, DBUS_TYPE_STRING, &text);
    dbus_message_iter_close_container(&body, &entries);
    return signal;
}

void send(DBusConnection* connection, DBusMessage* signal) {
    dbus_connection_send(connection, signal, nullptr);
    dbus_message_unref(signal);
}

/// Reads every key and value; answers the number and when it was sent.
void read(DBusMessage* signal, std::int64_t& number, std::int64_t& sent) {
    DBusMessageIter body, entries, entry, variant;
    if (!dbus_message_iter_init(signal, &body)) return;
    dbus_message_iter_recurse(&body, &entries);
    for (; dbus_message_iter_get_arg_type(&entries) == DBUS_TYPE_DICT_ENTRY;
         dbus_message_iter_next(&entries)) {
        const char* key = nullptr;
        DBusBasicValue value;
        dbus_message_iter_recurse(&entries, &entry);
        dbus_message_iter_get_basic(&entry, &key);
        dbus_message_iter_next(&entry);
        dbus_message_iter_recurse(&entry, &variant);
        dbus_message_iter_get_basic(&variant, &value);
        if (std::strcmp(key, numberKey) == 0) number = value.i64;
        if (std::strcmp(key, sentKey) == 0) sent = value.i64;
    }
}

}  // namespace

void SendByLibdbus(const std::string& address, const Traffic& traffic) {
    DBusConnection* connection = open(address);
    Pace(traffic, [&](int number) { send(connection, makeEvent(number, eventText)); });
    close(connection);
}

void HearByLibdbus(const std::string& address, const Traffic& traffic,
                   const std::function<void()>& ready, const Heard& heard) {
    DBusConnection* connection = open(address);
    dbus_bus_add_match(connection,
                       "type='signal',interface='com.quelm.client',member='AgentEvent',"
                       "path='/com/corvanta/orv'",
                       nullptr);
    ready();
    for (int last = -1; last + 1 < traffic.events && dbus_connection_read_write(connection, -1);) {
        while (DBusMessage* message = dbus_connection_pop_message(connection)) {
            if (dbus_message_is_signal(message, "com.quelm.client", "AgentEvent")) {
                std::int64_t number = 0;
                std::int64_t sent = 0;
                read(message, number, sent);
                last = static_cast<int>(number);
                heard(last, sent);
            }
            dbus_message_unref(message);
        }
    }
    close(connection);
}

void Flood(const std::string& address, const Traffic& traffic) {
    DBusConnection* connection = open(address);
    const std::string large(1 << 20, 'x');
    Pace(traffic, [&](int number) {
        if (number % 500 == 0) send(connection, makeEvent(number, large.c_str()));
        if (number % 10 == 0) send(connection, makeSignal("AgentEvent"));
        if (number % 10 == 5) send(connection, makeSignal("Unknown"));
        send(connection, makeEvent(number, eventText));
        if (number % 100 == 0) dbus_connection_flush(connection);
    });
    close(connection);
}

#include <cstdint>

#include "platform/linux/bus/BusBody.h"

namespace platform {

namespace {

using quelm::Value;

constexpr int arrayDepth = 2;
constexpr int dateDepth = 2;
constexpr int dictionaryDepth = 3;

/// Looks for what the bus would refuse: it ends the connection of whoever sends such a body.
class Checker {
 public:
    BusBodyFault dictionary(const quelm::Dictionary& dictionary, int depth) {
        if ((depth += dictionaryDepth) > BusBodyLimits::depth) return BusBodyFault::Depth;
        for (const auto& [key, member] : dictionary) {
            if (const auto fault = text(key); fault != BusBodyFault::None) return fault;
            if (const auto fault = value(member, depth); fault != BusBodyFault::None) return fault;
        }
        return BusBodyFault::None;
    }

 private:
    BusBodyFault add(std::size_t bytes) {
        constexpr std::size_t overhead = 16;  // signature, length and padding at most
        bytes_ += bytes + overhead;
        return bytes_ > BusBodyLimits::bytes ? BusBodyFault::Size : BusBodyFault::None;
    }

    BusBodyFault text(const std::string& text) {
        if (text.find('\0') != text.npos || !dbus_validate_utf8(text.c_str(), nullptr)) {
            return BusBodyFault::Text;
        }
        return add(text.size());
    }

    BusBodyFault array(const quelm::Array& array, int depth) {
        if ((depth += arrayDepth) > BusBodyLimits::depth) return BusBodyFault::Depth;
        for (const Value& item : array) {
            if (const auto fault = value(item, depth); fault != BusBodyFault::None) return fault;
        }
        return BusBodyFault::None;
    }

    BusBodyFault value(const Value& value, int depth) {
        if (++count_ > BusBodyLimits::values) return BusBodyFault::Count;
        if (const auto* string = value.asString()) return text(*string);
        if (const auto* data = value.asData()) return add(data->bytes.size());
        if (const auto fault = add(0); fault != BusBodyFault::None) return fault;
        if (const auto* items = value.asArray()) return array(*items, depth);
        if (const auto* members = value.asDictionary()) return dictionary(*members, depth);
        const bool deep = value.asDate() && depth + dateDepth > BusBodyLimits::depth;
        return deep ? BusBodyFault::Depth : BusBodyFault::None;
    }

    std::size_t count_ = 0;
    std::size_t bytes_ = 0;
};

// The library answers false only when memory runs out, and then the message is of no use.

bool appendVariant(DBusMessageIter* iter, const Value& value);

bool appendText(DBusMessageIter* iter, const std::string& text) {
    const char* characters = text.c_str();
    return dbus_message_iter_append_basic(iter, DBUS_TYPE_STRING, &characters);
}

template <class Fill>
bool appendContainer(DBusMessageIter* iter, int type, const char* signature, Fill fill) {
    DBusMessageIter inner;
    if (!dbus_message_iter_open_container(iter, type, signature, &inner)) return false;
    if (fill(&inner)) return dbus_message_iter_close_container(iter, &inner);
    dbus_message_iter_abandon_container(iter, &inner);
    return false;
}

bool appendDictionary(DBusMessageIter* iter, const quelm::Dictionary& dictionary) {
    return appendContainer(iter, DBUS_TYPE_ARRAY, "{sv}", [&](DBusMessageIter* entries) {
        for (const quelm::DictionaryEntry& member : dictionary) {
            const bool done = appendContainer(
                entries, DBUS_TYPE_DICT_ENTRY, nullptr, [&](DBusMessageIter* entry) {
                    return appendText(entry, member.key) && appendVariant(entry, member.value);
                });
            if (!done) return false;
        }
        return true;
    });
}

bool appendArray(DBusMessageIter* iter, const quelm::Array& array) {
    return appendContainer(iter, DBUS_TYPE_ARRAY, "v", [&](DBusMessageIter* items) {
        for (const Value& item : array) {
            if (!appendVariant(items, item)) return false;
        }
        return true;
    });
}

bool appendData(DBusMessageIter* iter, const quelm::Data& data) {
    return appendContainer(iter, DBUS_TYPE_ARRAY, "y", [&](DBusMessageIter* bytes) {
        const char* first = data.bytes.data();
        return dbus_message_iter_append_fixed_array(bytes, DBUS_TYPE_BYTE, &first,
                                                    static_cast<int>(data.bytes.size()));
    });
}

bool appendDate(DBusMessageIter* iter, const quelm::Date& date) {
    return appendContainer(iter, DBUS_TYPE_STRUCT, nullptr, [&](DBusMessageIter* members) {
        return dbus_message_iter_append_basic(members, DBUS_TYPE_DOUBLE, &date.secondsSince1970);
    });
}

bool appendBoolean(DBusMessageIter* iter, bool value) {
    const dbus_bool_t boolean = value ? 1 : 0;
    return dbus_message_iter_append_basic(iter, DBUS_TYPE_BOOLEAN, &boolean);
}

const char* signatureOf(Value::Type type) {
    switch (type) {
        case Value::Type::Boolean:
            return "b";
        case Value::Type::Integer:
            return "x";
        case Value::Type::Real:
            return "d";
        case Value::Type::String:
            return "s";
        case Value::Type::Data:
            return "ay";
        case Value::Type::Date:
            return "(d)";
        case Value::Type::Array:
            return "av";
        case Value::Type::Dictionary:
            return "a{sv}";
    }
    return "";
}

bool appendContent(DBusMessageIter* iter, const Value& value) {
    if (const auto* string = value.asString()) return appendText(iter, *string);
    if (const auto* integer = value.asInteger()) {
        return dbus_message_iter_append_basic(iter, DBUS_TYPE_INT64, integer);
    }
    if (const auto* boolean = value.asBoolean()) return appendBoolean(iter, *boolean);
    if (const auto* real = value.asReal()) {
        return dbus_message_iter_append_basic(iter, DBUS_TYPE_DOUBLE, real);
    }
    if (const auto* data = value.asData()) return appendData(iter, *data);
    if (const auto* date = value.asDate()) return appendDate(iter, *date);
    if (const auto* array = value.asArray()) return appendArray(iter, *array);
    return appendDictionary(iter, *value.asDictionary());
}

bool appendVariant(DBusMessageIter* iter, const Value& value) {
    return appendContainer(iter, DBUS_TYPE_VARIANT, signatureOf(value.type()),
                           [&](DBusMessageIter* content) { return appendContent(content, value); });
}

}  // namespace

BusBodyFault WriteBusBody(DBusMessage* message, const quelm::Dictionary& payload) {
    if (const auto fault = Checker().dictionary(payload, 0); fault != BusBodyFault::None) {
        return fault;
    }
    DBusMessageIter iter;
    dbus_message_iter_init_append(message, &iter);
    return appendDictionary(&iter, payload) ? BusBodyFault::None : BusBodyFault::Size;
}

}  // namespace platform

#include <cstdint>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "platform/linux/bus/BusBody.h"

namespace platform {

namespace {

using quelm::Value;

/// The library has checked the message: texts are UTF-8 and nothing is nested more than 64 times,
/// which bounds the recursion.
class Reader {
 public:
    [[nodiscard]] BusBodyFault fault() const { return fault_; }
    [[nodiscard]] std::size_t memory() const { return memory_; }

    /// `entries` stands on the first of a dictionary's entries.
    quelm::Dictionary dictionary(DBusMessageIter* entries) {
        std::vector<quelm::DictionaryEntry> members;
        for (; good() && hasElement(entries); dbus_message_iter_next(entries)) {
            DBusMessageIter entry;
            dbus_message_iter_recurse(entries, &entry);
            if (dbus_message_iter_get_arg_type(&entry) != DBUS_TYPE_STRING) {
                fail(BusBodyFault::Type);
                break;
            }
            std::string key = text(&entry);
            dbus_message_iter_next(&entry);
            members.push_back({std::move(key), value(&entry)});
        }
        return quelm::Dictionary(std::move(members));
    }

 private:
    [[nodiscard]] bool good() const { return fault_ == BusBodyFault::None; }
    static bool hasElement(DBusMessageIter* iter) {
        return dbus_message_iter_get_arg_type(iter) != DBUS_TYPE_INVALID;
    }
    Value fail(BusBodyFault fault) {
        fault_ = fault;
        return {};
    }

    template <class T>
    static T basic(DBusMessageIter* iter) {
        T value{};
        dbus_message_iter_get_basic(iter, &value);
        return value;
    }

    std::string text(DBusMessageIter* iter) {
        std::string text = basic<const char*>(iter);
        memory_ += text.size();
        return text;
    }

    Value unsignedInteger(std::uint64_t value) {
        if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
            return fail(BusBodyFault::Number);
        }
        return static_cast<std::int64_t>(value);
    }

    Value value(DBusMessageIter* iter) {
        memory_ += sizeof(quelm::DictionaryEntry);
        if (++count_ > BusBodyLimits::values) return fail(BusBodyFault::Count);
        switch (dbus_message_iter_get_arg_type(iter)) {
            case DBUS_TYPE_STRING:
            case DBUS_TYPE_OBJECT_PATH:
            case DBUS_TYPE_SIGNATURE:
                return text(iter);
            case DBUS_TYPE_BOOLEAN:
                return basic<dbus_bool_t>(iter) != 0;
            case DBUS_TYPE_DOUBLE:
                return basic<double>(iter);
            case DBUS_TYPE_VARIANT:
            case DBUS_TYPE_ARRAY:
            case DBUS_TYPE_STRUCT:
                return container(iter);
            default:
                return integer(iter);
        }
    }

    Value integer(DBusMessageIter* iter) {
        switch (dbus_message_iter_get_arg_type(iter)) {
            case DBUS_TYPE_BYTE:
                return basic<std::uint8_t>(iter);
            case DBUS_TYPE_INT16:
                return basic<std::int16_t>(iter);
            case DBUS_TYPE_UINT16:
                return basic<std::uint16_t>(iter);
            case DBUS_TYPE_INT32:
                return basic<std::int32_t>(iter);
            case DBUS_TYPE_UINT32:
                return basic<std::uint32_t>(iter);
            case DBUS_TYPE_INT64:
                return basic<std::int64_t>(iter);
            case DBUS_TYPE_UINT64:
                return unsignedInteger(basic<std::uint64_t>(iter));
            default:
                return fail(BusBodyFault::Type);
        }
    }

    Value container(DBusMessageIter* iter) {
        const int type = dbus_message_iter_get_arg_type(iter);
        const int elementType =
            type == DBUS_TYPE_ARRAY ? dbus_message_iter_get_element_type(iter) : DBUS_TYPE_INVALID;
        DBusMessageIter inner;
        dbus_message_iter_recurse(iter, &inner);
        if (type == DBUS_TYPE_VARIANT) return value(&inner);
        if (type == DBUS_TYPE_STRUCT) return date(&inner);
        if (elementType == DBUS_TYPE_DICT_ENTRY) return dictionary(&inner);
        if (elementType == DBUS_TYPE_BYTE) return data(&inner);
        return array(&inner);
    }

    Value date(DBusMessageIter* members) {
        if (dbus_message_iter_get_arg_type(members) != DBUS_TYPE_DOUBLE) {
            return fail(BusBodyFault::Type);
        }
        const quelm::Date date{basic<double>(members)};
        return dbus_message_iter_next(members) ? fail(BusBodyFault::Type) : date;
    }

    Value data(DBusMessageIter* bytes) {
        const char* first = nullptr;
        int size = 0;
        dbus_message_iter_get_fixed_array(bytes, &first, &size);
        memory_ += static_cast<std::size_t>(size);
        return quelm::Data{std::string(first, static_cast<std::size_t>(size))};
    }

    Value array(DBusMessageIter* items) {
        quelm::Array result;
        for (; good() && hasElement(items); dbus_message_iter_next(items))
            result.push_back(value(items));
        return result;
    }

    BusBodyFault fault_ = BusBodyFault::None;
    std::size_t count_ = 0;
    std::size_t memory_ = sizeof(quelm::Dictionary);
};

}  // namespace

BusBodyFault ReadBusBody(DBusMessage* message, quelm::Dictionary& payload, std::size_t& memory) {
    if (!dbus_message_has_signature(message, "a{sv}")) return BusBodyFault::NoDictionary;
    DBusMessageIter iter;
    DBusMessageIter entries;
    dbus_message_iter_init(message, &iter);
    dbus_message_iter_recurse(&iter, &entries);
    Reader reader;
    payload = reader.dictionary(&entries);
    memory += reader.memory();
    return reader.fault();
}

}  // namespace platform

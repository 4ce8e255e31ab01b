#pragma once

#include <cstddef>
#include <string_view>

#include "platform/Value.h"
#include "platform/linux/bus/BusMessage.h"

// The body of a notification: one a{sv}. Boolean b, integer x, real d, string s, data ay, array av,
// dictionary a{sv}, date (d) in seconds since 1970. A reader takes integers of any width, arrays of
// any element type, and object paths and signatures as strings.

namespace platform {

struct BusBodyLimits {
    /// Containers within each other, as D-Bus counts them: a dictionary is three (array, entry,
    /// variant), an array two, a date two. The bus itself ends the connection beyond 64.
    static constexpr int depth = 64;
    /// Values of a body, the nested ones included.
    static constexpr std::size_t values = 500'000;
    /// Bytes of a body that is written; D-Bus ends at 64 MiB for an array, and a body is one.
    static constexpr std::size_t bytes = std::size_t{60} << 20U;
};

enum class BusBodyFault { None, NoDictionary, Type, Number, Text, Depth, Count, Size };

/// What is wrong, for a log line.
[[nodiscard]] std::string_view Describe(BusBodyFault fault);

/// Appends the dictionary; on a fault the message stays as it was.
[[nodiscard]] BusBodyFault WriteBusBody(DBusMessage* message, const quelm::Dictionary& payload);

/// Replaces `payload` and adds to `memory` about what it takes, in bytes. On a fault the payload is
/// incomplete.
[[nodiscard]] BusBodyFault ReadBusBody(DBusMessage* message, quelm::Dictionary& payload,
                                       std::size_t& memory);

}  // namespace platform

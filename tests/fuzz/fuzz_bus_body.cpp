#include <cstdint>
#include <cstdlib>

#include "platform/linux/bus/BusBody.h"

// Whatever message the library lets through is read within the bounds, and what was read can be
// written and comes back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto* bytes = reinterpret_cast<const char*>(data);
    const platform::BusMessage message(
        dbus_message_demarshal(bytes, static_cast<int>(size), nullptr));
    if (!message) return 0;
    quelm::Dictionary payload;
    std::size_t memory = 0;
    if (platform::ReadBusBody(message.get(), payload, memory) != platform::BusBodyFault::None)
        return 0;
    const platform::BusMessage again(dbus_message_new_signal("/a", "a.b", "C"));
    if (platform::WriteBusBody(again.get(), payload) != platform::BusBodyFault::None) {
        return 0;  // a nesting that only arrays of arrays without variants reach
    }
    quelm::Dictionary copy;
    if (platform::ReadBusBody(again.get(), copy, memory) != platform::BusBodyFault::None)
        std::abort();
    if (copy.size() != payload.size()) std::abort();
    return 0;
}

#include "platform/linux/bus/BusBody.h"

#include <array>

namespace platform {

std::string_view Describe(BusBodyFault fault) {
    static constexpr std::array<std::string_view, 8> texts = {
        "nothing is wrong",
        "the body is no dictionary with string keys",
        "it holds a value of a type that no property has",
        "it holds a number beyond 64 signed bits",
        "it holds a text that is not UTF-8 or has a NUL byte",
        "its values are nested too deeply",
        "it holds too many values",
        "it is too large"};
    return texts.at(static_cast<std::size_t>(fault));
}

}  // namespace platform

#pragma once

#include <functional>
#include <string>

namespace orv {

/// What the service's addresses ask of rooms that stand above this one. Set when the program
/// starts, before the first address is opened.
struct WebAddressHooks {
    /// The default account's remote client id; without it "".
    std::function<std::string()> rcid;
};

/// Those of this process.
[[nodiscard]] inline WebAddressHooks& ProcessWebAddressHooks() {
    static WebAddressHooks hooks;
    return hooks;
}

}  // namespace orv

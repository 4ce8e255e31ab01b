#pragma once

#include <functional>
#include <string>

namespace orv {

class FrameUpdates;
class Icons;

/// What every window shares; it outlives them.
struct WindowContext {
    FrameUpdates& updates;
    const Icons& icons;
    /// Opens what a link in a text points at, which may be anything.
    std::function<void(const std::string& address)> openAddress;
};

}  // namespace orv

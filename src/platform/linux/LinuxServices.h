#pragma once

#include "platform/Services.h"

namespace platform {

/// The adapters of this system, but for those that need an event loop. The reporter is called from
/// any thread.
[[nodiscard]] Services MakeLinuxServices(const Reporter& reporter);

/// Adds the run loop and the notifications of the session bus, for a program with an event loop:
/// the application object exists.
void AddEventServices(Services& services, const Reporter& reporter);

}  // namespace platform

#pragma once

#include "platform/Services.h"

namespace platform {

/// The adapters of this system, all but the run loop: only a program with an event loop has one,
/// and adds it. The reporter is called from any thread.
[[nodiscard]] Services MakeLinuxServices(const Reporter& reporter);

}  // namespace platform

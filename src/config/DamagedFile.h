#pragma once

#include <string>

#include "config/LockedFile.h"
#include "platform/Value.h"

namespace orv {

// What becomes of a settings file that cannot be parsed: it is kept before it is overwritten. So
// that storing need not parse what it replaces each time, the states of files that this process
// has read or written itself are remembered. Any thread.

/// Notes that the file, as it is now, holds a property list of that type.
void RememberSound(const LockedFile& file, quelm::Value::Type type);

/// Whether the file is exactly as it was when that was noted.
[[nodiscard]] bool IsKnownSound(const LockedFile& file, quelm::Value::Type type);

/// Copies the file to "NAME.damaged-TIME" beside it and logs that; false, logged as well, when
/// that cannot be done.
[[nodiscard]] bool KeepDamagedFile(const LockedFile& file, const std::string& path);

}  // namespace orv

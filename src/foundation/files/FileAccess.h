#pragma once

#include <cstdint>
#include <string>

#include "foundation/files/StatusCode.h"

namespace quelm::os {

/// Sets the mode to 0444 or 0644, less the umask that the process started with.
EStatusCode SetReadonly(const std::string& path, bool readonly);

/// Sets access and modification time, in seconds since 1970.
EStatusCode SetFileTime(const std::string& path, std::int64_t seconds);

/// Bytes that a user without privileges may still write on the volume that holds the path.
EStatusCode AvailableDiskSpace(const std::string& path, std::uint64_t& bytes);

/// Renames unless anything, be it a dangling link, is at the destination.
EStatusCode RenameNoOverride(const std::string& from, const std::string& to);

// Deleting needs no preparation here: both do nothing.
EStatusCode AllowDelete(const std::string& path);
EStatusCode DisableDelete(const std::string& path);

}  // namespace quelm::os

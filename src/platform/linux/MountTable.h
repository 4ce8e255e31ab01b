#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// One line of the mount table.
struct MountEntry {
    std::uint64_t id = 0;
    unsigned major = 0;
    unsigned minor = 0;
    std::string mountPoint;
    std::string fileSystem;
    std::string source;
    bool readOnly = false;

    bool operator==(const MountEntry&) const = default;
};

/// Reads a text like /proc/self/mountinfo (proc(5)), in its order. Lines that are no entry, are
/// longer than 64 KiB or have no end are left out, and so is what exceeds the kernel's own limit
/// of 100,000 mounts.
[[nodiscard]] std::vector<MountEntry> ParseMountTable(std::string_view text);

}  // namespace platform

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "backup/scanner/ScannerFilters.h"

namespace orv {

/// Something in a folder that is not counted, and why, for a person.
struct LeftOutEntry {
    std::string name;
    std::string reason;
    bool operator==(const LeftOutEntry&) const = default;
};

struct LeftOutList {
    /// By name.
    std::vector<LeftOutEntry> entries = {};
    /// There is more than is listed.
    bool isCut = false;
    /// Why the folder itself cannot be looked into; empty when it can.
    std::string problem = {};
};

/// What lies directly in the folder and is not counted. Asks the disk; any thread.
[[nodiscard]] LeftOutList FindLeftOut(const std::string& folder, const ScannerFilters& filters,
                                      std::size_t mostEntries = 2'000);

}  // namespace orv

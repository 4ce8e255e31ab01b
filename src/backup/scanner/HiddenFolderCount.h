#pragma once

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace orv {

struct HiddenTotals {
    /// Regular files and symbolic links, hidden or not.
    std::uint64_t files = 0;
    /// Of the regular files.
    std::uint64_t bytes = 0;
};

/// What is in the folders and below them, which no scan counts. Each is looked at on its own file
/// system only, no link is followed, and nothing is counted below 512 levels; what cannot be opened
/// counts nothing. None once it is to stop. Waits for the disk; any thread.
[[nodiscard]] std::optional<HiddenTotals> CountHiddenFolders(
    const std::vector<std::string>& folders, const std::stop_token& stop);

}  // namespace orv

#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_set>

#include "accounts/filters/FilterList.h"
#include "accounts/filters/FolderPatterns.h"

namespace orv {

class orv_FilterSettings;

/// Answers look-ups of paths without copying them.
struct PathHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view path) const {
        return std::hash<std::string_view>()(path);
    }
};
using PathSet = std::unordered_set<std::string, PathHash, std::equal_to<>>;

/// What a scan counts: at first every regular file.
struct ScannerFilters {
    static constexpr std::uint64_t unlimited = std::numeric_limits<std::int64_t>::max();

    /// Without the folders that are never entered. Reads a file: not on the interface thread.
    [[nodiscard]] static ScannerFilters of(const orv_FilterSettings& settings);

    orv_FilterList include{true};
    orv_FilterList exclude{false};
    /// Paths of subfolders that are not scanned.
    FolderPatterns excludedFolders;
    /// In bytes; larger files do not count.
    std::uint64_t maxFileSize = unlimited;
    /// Paths of subfolders that are never entered: mount points of pseudo file systems and of
    /// volumes that are not backed up.
    PathSet unscannedFolders;
};

}  // namespace orv

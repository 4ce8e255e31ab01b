#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "backup/scanner/ScannedFiles.h"

namespace orv {

/// What one more exclude pattern would leave out of what counts now.
struct ExcludePreview {
    struct Match {
        std::string name;
        /// In bytes.
        std::uint64_t size;
        /// The path of what it is in.
        std::string folder;
    };

    std::uint64_t files = 0;
    std::uint64_t bytes = 0;
    /// The first ones, as they were scanned.
    std::vector<Match> first;
};

/// At most `mostMatches` are named; all are counted. None once it is to stop. Takes its time; any
/// thread.
[[nodiscard]] std::optional<ExcludePreview> PreviewExclude(
    const std::string& pattern, const std::vector<std::shared_ptr<const ScannedFiles>>& folders,
    std::size_t mostMatches, const std::stop_token& stop);

}  // namespace orv

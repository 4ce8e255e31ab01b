#pragma once

#include <cstdint>
#include <string>

namespace orv {

struct ProjectStatus {
    std::int64_t files = 0;
    std::int64_t bytes = 0;
    bool outOfQuota = false;
    bool partial = false;
};

/// "3 files, 1.5 MB (Selective Sync)".
[[nodiscard]] std::string ProjectStatusText(const ProjectStatus& status);

}  // namespace orv

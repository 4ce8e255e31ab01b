#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "pane/status/AgentProgress.h"
#include "pane/status/StatusLine.h"

namespace orv {

/// What the project lines depend on beside the agent's progress.
struct ProjectSituation {
    std::int64_t violations = 0;
    /// Held by the user.
    std::int64_t locks = 0;
    /// Of the active account.
    std::string agentId = {};
};

struct ProjectLines {
    std::string summary;
    StatusLine state;
    bool operator==(const ProjectLines&) const = default;
};

/// How many projects there are and how far they are; `shown` is the state's text as it stands now,
/// without which violations are not told yet.
[[nodiscard]] ProjectLines ComposeProjectLines(const AgentProgress& progress,
                                               const ProjectSituation& situation,
                                               std::string_view shown);

}  // namespace orv

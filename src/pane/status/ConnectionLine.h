#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "pane/status/AgentProgress.h"

namespace orv {

struct ConnectionLine {
    std::string text;
    /// None leaves what is shown: an error of the agent.
    std::optional<std::string> info;
    /// The agent's error is over.
    bool clearsError = false;
    /// What was shown of the agent's work is over.
    bool resetsStatus = false;
    bool operator==(const ConnectionLine&) const = default;
};

/// Who is connected and since when, or why not. `now` in seconds since 1970; `showsError` while an
/// error of the agent is shown.
[[nodiscard]] ConnectionLine ComposeConnectionLine(const AgentProgress& progress,
                                                   const std::string& fullName, bool showsError,
                                                   std::int64_t now);

/// The adapter in use, or "<N/A>".
[[nodiscard]] std::string ActiveAdapterName(const AgentProgress& progress);

}  // namespace orv

#pragma once

#include <cstdint>
#include <string>

#include "pane/status/AgentProgress.h"
#include "pane/status/StatusInputs.h"
#include "widgets/LinkedText.h"

namespace orv {

/// How things stand, for a person who looks only once.
struct Headline {
    /// With the remedy as a link at its end, where there is one.
    LinkedText text;
    /// The name of an image.
    std::string image;
    bool operator==(const Headline&) const = default;
};

/// The one cause that matters most. Only a backup that is complete now, or projects that are up to
/// date where nothing is backed up, look like done. `agentError` is what the agent last said is
/// wrong, empty for nothing; `now` in seconds since 1970.
[[nodiscard]] Headline ComposeHeadline(const AgentProgress& progress, const StatusInputs& inputs,
                                       const std::string& agentError, std::int64_t now);

/// "Last complete backup: ..." with the date; that there was none yet. Empty when nothing is to be
/// backed up.
[[nodiscard]] std::string LastBackupText(const StatusInputs& inputs, std::int64_t now);

/// Whether everything that is to be backed up is, as far as the agent says now.
[[nodiscard]] bool IsBackupComplete(const AgentProgress& progress, const StatusInputs& inputs);

}  // namespace orv

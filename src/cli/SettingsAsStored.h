#pragma once

#include "config/AgentSettings.h"

namespace orv::cli {

/// The account's record, or one of defaults: for commands that only look, which make no file.
[[nodiscard]] orvAgentSettings SettingsAsStored();

}  // namespace orv::cli

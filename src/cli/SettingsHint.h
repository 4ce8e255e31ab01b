#pragma once

#include "agentlink/AgentVocabulary.h"
#include "cli/Command.h"

namespace orv::cli {

/// Tells panels and agents that something of this command line's account was stored. Without a bus
/// they see it when they read the file next, which is said on the error stream.
void AnnounceSettings(Console& console, SettingsHint hint);

}  // namespace orv::cli

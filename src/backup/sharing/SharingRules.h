#pragma once

#include "backup/tree/TreeRules.h"
#include "config/AgentSettings.h"

namespace orv {

/// What an account's tree does not show: volumes that it does not back up, the folder of its
/// projects while it syncs, and folders that the server's expressions exclude. Asks the disk.
[[nodiscard]] TreeRules RulesOfAccount(const orvAgentSettings& settings);

}  // namespace orv

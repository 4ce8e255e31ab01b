#pragma once

#include <optional>
#include <string_view>

#include "config/AgentSettingsTable.h"
#include "platform/Value.h"

namespace orv::cli {

/// A setting's value as a command line gives it: "true" or "false", a decimal number, or a text, in
/// which commas stand between the texts of a list. None for what its type cannot hold.
[[nodiscard]] std::optional<quelm::Value> ParseSetting(const AgentSetting& setting,
                                                       std::string_view text);

}  // namespace orv::cli

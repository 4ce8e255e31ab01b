#pragma once

#include <functional>
#include <string>

namespace orv {

/// What the settings record asks of rooms that stand above this one. Set when the program starts,
/// before the first record is made.
struct AgentSettingsHooks {
    /// Whether the account that owns the path is the default one; without it the path alone tells.
    std::function<bool(const std::string& path)> isDefaultAccountPath;
    /// The text as the branding has it; without it the text as it is.
    std::function<std::string(const std::string& text)> brand;
};

/// Those of this process.
[[nodiscard]] inline AgentSettingsHooks& ProcessAgentSettingsHooks() {
    static AgentSettingsHooks hooks;
    return hooks;
}

}  // namespace orv

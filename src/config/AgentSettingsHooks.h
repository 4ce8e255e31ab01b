#pragma once

#include <functional>
#include <string>

namespace orv {

/// What the settings record asks of rooms that stand above this one. Set when the program starts,
/// before the first record is made.
struct AgentSettingsHooks {
    /// The text as the branding has it; without it the text as it is.
    std::function<std::string(const std::string& text)> brand;
};

/// Those of this process.
[[nodiscard]] inline AgentSettingsHooks& ProcessAgentSettingsHooks() {
    static AgentSettingsHooks hooks;
    return hooks;
}

}  // namespace orv

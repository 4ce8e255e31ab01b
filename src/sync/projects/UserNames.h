#pragma once

#include <set>
#include <string>

#include "config/AgentSettings.h"

namespace orv {

/// The names by which the agent may call the user: full name, login name and e-mail address.
[[nodiscard]] inline std::set<std::string> UserNames(const orvAgentSettings& settings) {
    std::set<std::string> names{settings.fullName(), settings.userName(), settings.email()};
    names.erase("");  // which is nobody's name
    return names;
}

}  // namespace orv

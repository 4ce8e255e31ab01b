#pragma once

#include <string>
#include <string_view>

namespace orv {

/// The name under which the agent of an account is known on the bus while it runs.
[[nodiscard]] std::string AgentPresenceName(std::string_view accountId);

}  // namespace orv

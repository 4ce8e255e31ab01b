#pragma once

#include <string>

#include "config/AgentSettings.h"
#include "support/web/HTTPConnection.h"

namespace orv {

/// What asks the service whether the password is the account's.
[[nodiscard]] HTTPConnection::Parameters VerifyAccountCommand(const orvAgentSettings& settings,
                                                              const std::string& password);

}  // namespace orv

#include "agentlink/AgentPresence.h"

#include "config/AccountId.h"

namespace orv {

std::string AgentPresenceName(std::string_view accountId) {
    const std::string_view id = IsDefaultAccountId(accountId) ? "1" : accountId;
    return "com.quelm.client.Agent.account_" + std::string(id);
}

}  // namespace orv

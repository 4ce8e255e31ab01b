#pragma once

#include <optional>
#include <string>

namespace orv {

/// Flags that outlive the programs, each an empty file of its name: in an account's folder or, for
/// the user as a whole, in the folder of preferences. No id, "0" and "1" mean the default account.
/// What can be no file's name or no account's id is a flag that is never set.
class orv_PersistentFlag {
 public:
    using AgentId = std::optional<std::string>;

    static constexpr const char* scanShareInfo = "scan_share_info";
    static constexpr const char* openSharingWindow = "open_sharing_window";

    [[nodiscard]] static bool isSet(const std::string& flag, const AgentId& agentId);
    static bool set(const std::string& flag, const AgentId& agentId);
    static bool remove(const std::string& flag, const AgentId& agentId);
    /// Whether the flag was set, also when it cannot be removed. Of two at once one gets it.
    [[nodiscard]] static bool getAndRemove(const std::string& flag, const AgentId& agentId);

    [[nodiscard]] static bool isSetGloballyForUser(const std::string& flag);
    static bool setGloballyForUser(const std::string& flag);

    /// The flag's file; none for a name or an id that cannot be.
    [[nodiscard]] static std::optional<std::string> createPathForAgentID(
        const AgentId& agentId, const std::string& flagName);
};

}  // namespace orv

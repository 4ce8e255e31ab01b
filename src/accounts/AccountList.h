#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "accounts/Account.h"
#include "agentlink/AgentObservers.h"
#include "foundation/threads/Background.h"

namespace orv {

/// All accounts found on disk, in the text order of their agent ids. It learns of accounts when it
/// is loaded and when their settings are announced, reloads what is announced and passes it on. An
/// account stays known until the process ends. Main thread only.
class AccountList {
 public:
    /// Told of settings that changed, after the list has reloaded them.
    class Client {
     public:
        virtual ~Client() = default;
        virtual void notifyAgentSettings(std::uint32_t hint, const AgentId& agentId) = 0;
    };

    using Accounts = std::vector<std::unique_ptr<Account>>;

    /// The process's own, made on first use; the first call decides the flag.
    static AccountList& defaultAccountList();
    static AccountList& defaultAccountListWithPassword(bool loadPassword);
    /// Makes it of accounts that were read elsewhere, in a program that waits for nothing.
    static AccountList& createDefaultAccountList(Accounts accounts, quelm::Background& background);
    /// Ends it, before the services end.
    static void destroyDefaultAccountList();

    /// The accounts below the default configuration path, read. Waits for the locks of their files;
    /// any thread, while no other reads.
    [[nodiscard]] static Accounts loadAccounts(const std::string& defaultPath);

    /// `loadPassword`: whether the settings are read together with the keychain's password.
    explicit AccountList(bool loadPassword);
    /// Reads later settings with `background`, which outlives it.
    AccountList(Accounts accounts, quelm::Background& background);
    AccountList(const AccountList&) = delete;
    AccountList& operator=(const AccountList&) = delete;
    ~AccountList();

    /// Clients are told in the order in which they came; one that has gone is forgotten.
    void addClient(const std::shared_ptr<Client>& client);
    void removeClient(const Client* client);

    /// Adds the accounts that are on disk and not known.
    void load();
    /// Adds the folder's account if no account has it.
    void processPath(const std::string& folder);
    /// Reads the account's settings anew and passes the hint on; with a background later, and then
    /// once for all hints that came while it read.
    void notifyAgentSettings(std::uint32_t hint, const AgentId& agentId);
    void notifyAgentSettingsChanged(std::uint32_t hint, const AgentId& agentId);
    /// Reads the account's files anew and then calls `done`, on the main thread; at once without a
    /// background.
    void reload(Account& account, std::function<void()> done);

    // Null when there is none; owned by the list.
    [[nodiscard]] Account* accountForAgentID(std::string_view agentId) const;
    [[nodiscard]] Account* accountForPath(const std::string& path) const;
    [[nodiscard]] Account* accountForUserID(std::string_view userId) const;
    [[nodiscard]] Account* accountAtIndex(std::size_t index) const;
    [[nodiscard]] std::size_t count() const { return _accountsList.size(); }
    [[nodiscard]] std::optional<std::string> teamForAgentID(std::string_view agentId) const;

    [[nodiscard]] static std::string defaultConfigPath();
    [[nodiscard]] static std::string defaultConfigFilename();
    [[nodiscard]] static std::string pathForAgentID(std::string_view agentId);
    /// The settings of the first account; a record of defaults when there is none.
    [[nodiscard]] orvAgentSettings& defaultConfig();

    /// A folder whose agent id, a random number below 10,000, no account has.
    [[nodiscard]] std::string createNewAccountPath() const;
    /// On such a path, not loaded and not in the list.
    [[nodiscard]] std::unique_ptr<Account> newAccount() const;

    // Over all accounts.
    /// Whether there is none, or each still has to be set up.
    [[nodiscard]] bool needSetup() const;
    [[nodiscard]] bool syncEnabled() const;
    [[nodiscard]] bool backupEnabled() const;
    [[nodiscard]] bool debugTabEnabled() const;
    /// Whether the first account has roots to back up, their number taken in eight bits.
    [[nodiscard]] bool hasBackupPaths() const;
    /// The same as it was when the settings were read last.
    [[nodiscard]] bool hadBackupPaths() const;
    // The smallest so far, where 0 counts as none yet.
    [[nodiscard]] std::int64_t minMbBackupWindowTresholdSetting() const;
    [[nodiscard]] std::int64_t minFilesBackupWindowTresholdSetting() const;
    [[nodiscard]] bool loadPassword() const { return _loadPassword; }

 private:
    void registerAgentEvents();
    void orderByAgentID();
    void compactClients();
    [[nodiscard]] bool isClient(const Client* client) const;
    [[nodiscard]] bool anyAccount(bool (orvAgentSettings::*answer)() const) const;
    [[nodiscard]] std::int64_t runningMinimum(std::int64_t (orvAgentSettings::*value)()
                                                  const) const;

    void addAccount(const std::string& folder, bool loadNow);
    /// What was announced of an account whose settings are being read.
    struct Announced {
        std::uint32_t hint = 0;
        AgentId agentId = {};
    };
    void readAnnounced(Account& account, const Announced& announced);

    Accounts _accountsList;
    std::vector<std::weak_ptr<Client>> _clients;
    bool _loadPassword;
    orvAgentSettings defaults_{""};
    AgentObserverRecord settingsObserver_;
    /// Null: everything is read at once.
    quelm::Background* background_ = nullptr;
    /// By account, while its settings are read: what came meanwhile.
    std::map<const Account*, std::optional<Announced>> announced_;
    /// Gone when the list is.
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
};

}  // namespace orv

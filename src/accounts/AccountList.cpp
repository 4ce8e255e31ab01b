#include "accounts/AccountList.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <random>
#include <set>
#include <utility>

#include "config/AccountId.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/files/Existence.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

namespace fs = std::filesystem;

constexpr int mostAccounts = 10'000;

/// As a number is read from the beginning of a text; 0 without one.
int numberOf(const std::string& agentId) {
    int number = 0;
    std::from_chars(agentId.data(), agentId.data() + agentId.size(), number);
    return number;
}

/// The first number from the drawn one on that is not taken; a higher one when all are.
int freeNumber(const std::set<int>& taken, int drawn) {
    for (int tried = 0; tried < mostAccounts; ++tried) {
        const int number = (drawn + tried) % mostAccounts;
        if (!taken.contains(number)) return number;
    }
    return *taken.rbegin() + 1;
}

/// The folders of further accounts, directly in the configuration folder.
std::vector<std::string> accountFoldersIn(const std::string& folder) {
    std::vector<std::string> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(accountFolderPrefix) && quelm::IsFolder(entry->path().string())) {
            found.push_back(std::string(folder).append("/").append(name));
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

/// A count in eight bits, which is how many the agent takes.
bool hasRoots(const orv_StorageSettings& settings) {
    return static_cast<std::uint8_t>(settings.topLevelPaths().size()) != 0;
}

std::unique_ptr<AccountList>& sharedList() {
    static std::unique_ptr<AccountList> list;
    return list;
}

}  // namespace

AccountList& AccountList::defaultAccountList() {
    return defaultAccountListWithPassword(true);
}

AccountList& AccountList::defaultAccountListWithPassword(bool loadPassword) {
    if (!sharedList()) sharedList() = std::make_unique<AccountList>(loadPassword);
    return *sharedList();
}

AccountList& AccountList::createDefaultAccountList(Accounts accounts,
                                                   quelm::Background& background) {
    sharedList() = std::make_unique<AccountList>(std::move(accounts), background);
    return *sharedList();
}

void AccountList::destroyDefaultAccountList() {
    sharedList().reset();
}

AccountList::Accounts AccountList::loadAccounts(const std::string& defaultPath) {
    Accounts accounts;
    accounts.push_back(std::make_unique<Account>(defaultPath, quelm::IsFolder(defaultPath)));
    for (const std::string& folder : accountFoldersIn(defaultPath)) {
        if (accounts.size() < mostAccounts)
            accounts.push_back(std::make_unique<Account>(folder, true));
    }
    return accounts;
}

AccountList::AccountList(bool loadPassword) : _loadPassword(loadPassword) {
    registerAgentEvents();
    load();
}

AccountList::AccountList(Accounts accounts, quelm::Background& background)
    : _accountsList(std::move(accounts)), _loadPassword(true), background_(&background) {
    registerAgentEvents();
    orderByAgentID();
}

AccountList::~AccountList() {
    RemoveAgentObserver(settingsObserver_);
}

void AccountList::registerAgentEvents() {
    RegisterAgentSettingsObserver(settingsObserver_, this, &ForwardAgentSettingsEvent<AccountList>);
}

void AccountList::addClient(const std::shared_ptr<Client>& client) {
    _clients.push_back(client);
}

void AccountList::removeClient(const Client* client) {
    compactClients();
    std::erase_if(_clients, [client](const auto& held) { return held.lock().get() == client; });
}

/// One may have been removed by another that was told before it.
bool AccountList::isClient(const Client* client) const {
    return std::ranges::any_of(_clients,
                               [client](const auto& held) { return held.lock().get() == client; });
}

void AccountList::compactClients() {
    std::erase_if(_clients, [](const auto& held) { return held.expired(); });
}

void AccountList::load() {
    processPath(defaultConfigPath());
    for (const std::string& folder : accountFoldersIn(defaultConfigPath()))
        processPath(folder);
}

void AccountList::processPath(const std::string& folder) {
    const bool known =
        std::any_of(_accountsList.begin(), _accountsList.end(),
                    [&](const auto& account) { return account->accountFolderPath() == folder; });
    if (known) return;
    if (_accountsList.size() >= mostAccounts) {
        quelm::LogWarning(folder + " is left out: there are too many accounts.");
        return;
    }
    addAccount(folder, !background_ && quelm::IsFolder(folder));
}

void AccountList::addAccount(const std::string& folder, bool loadNow) {
    _accountsList.push_back(std::make_unique<Account>(folder, loadNow));
    orderByAgentID();
}

void AccountList::orderByAgentID() {
    std::stable_sort(_accountsList.begin(), _accountsList.end(),
                     [](const auto& a, const auto& b) { return a->agentID() < b->agentID(); });
}

/// An id that cannot name a folder of its own is passed on, and no account is made for it.
void AccountList::notifyAgentSettings(std::uint32_t hint, const AgentId& agentId) {
    const bool isDefault = !agentId || IsDefaultAccountId(*agentId);
    const std::string id = isDefault ? "1" : *agentId;
    Account* account = accountForAgentID(id);
    if (!account && (isDefault || IsAccountId(id))) {
        processPath(isDefault ? defaultConfigPath() : pathForAgentID(id));
        if (background_) account = accountForAgentID(id);
    }
    if (!account) return notifyAgentSettingsChanged(hint, agentId);
    const auto [waiting, isFirst] = announced_.try_emplace(account);
    if (isFirst) return readAnnounced(*account, {hint, agentId});
    const std::uint32_t before = waiting->second ? waiting->second->hint : 0;
    waiting->second = {before | hint, agentId};
}

/// And again while more is announced, which may be newer than what was read.
void AccountList::readAnnounced(Account& account, const Announced& announced) {
    reload(account, [this, &account, announced] {
        notifyAgentSettingsChanged(announced.hint, announced.agentId);
        const auto next = std::exchange(announced_[&account], std::nullopt);
        if (next) return readAnnounced(account, *next);
        announced_.erase(&account);
    });
}

void AccountList::reload(Account& account, std::function<void()> done) {
    if (!background_) {
        account.loadSettings();
        return done();
    }
    struct Read {
        AccountRecords records;
        /// An account without a folder does not become valid.
        bool isThere = false;
    };
    auto read = std::make_shared<Read>(Read{account.records()});
    background_->perform(
        [read, folder = account.accountFolderPath()] {
            read->isThere = quelm::IsFolder(folder);
            read->records.load();
        },
        [life = std::weak_ptr(life_), &account, read, done = std::move(done)] {
            if (life.expired()) return;
            if (read->isThere || account.isValid()) account.adoptSettings(std::move(read->records));
            done();
        });
}

void AccountList::notifyAgentSettingsChanged(std::uint32_t hint, const AgentId& agentId) {
    compactClients();
    for (const auto& held : std::vector(_clients)) {
        const auto client = held.lock();
        if (client && isClient(client.get())) client->notifyAgentSettings(hint, agentId);
    }
}

Account* AccountList::accountForAgentID(std::string_view agentId) const {
    const auto found =
        std::find_if(_accountsList.begin(), _accountsList.end(),
                     [agentId](const auto& account) { return account->agentID() == agentId; });
    return found == _accountsList.end() ? nullptr : found->get();
}

Account* AccountList::accountForPath(const std::string& path) const {
    return accountForAgentID(extractAgentID(path));
}

Account* AccountList::accountForUserID(std::string_view userId) const {
    const auto found = std::find_if(
        _accountsList.begin(), _accountsList.end(),
        [userId](const auto& account) { return account->agentSettings().userId() == userId; });
    return found == _accountsList.end() ? nullptr : found->get();
}

Account* AccountList::accountAtIndex(std::size_t index) const {
    return index < _accountsList.size() ? _accountsList[index].get() : nullptr;
}

std::optional<std::string> AccountList::teamForAgentID(std::string_view agentId) const {
    const Account* account = accountForAgentID(agentId);
    return account ? account->agentSettings().teamName() : std::nullopt;
}

std::string AccountList::defaultConfigPath() {
    return GetConfigurationNsPath(std::nullopt);
}

std::string AccountList::defaultConfigFilename() {
    return GetConfigurationNsPath(files::userInfo);
}

std::string AccountList::pathForAgentID(std::string_view agentId) {
    return defaultConfigPath() + "/" + std::string(accountFolderPrefix) + std::string(agentId);
}

orvAgentSettings& AccountList::defaultConfig() {
    return _accountsList.empty() ? defaults_ : _accountsList.front()->agentSettings();
}

std::string AccountList::createNewAccountPath() const {
    std::set<int> taken{0};  // which is the default account as well
    for (const auto& account : _accountsList)
        taken.insert(numberOf(account->agentID()));
    std::random_device device;
    std::uniform_int_distribution<int> draw(0, mostAccounts - 1);
    return pathForAgentID(std::to_string(freeNumber(taken, draw(device))));
}

std::unique_ptr<Account> AccountList::newAccount() const {
    return std::make_unique<Account>(createNewAccountPath(), false);
}

bool AccountList::needSetup() const {
    return std::all_of(_accountsList.begin(), _accountsList.end(),
                       [](const auto& account) { return account->needSetup(); });
}

bool AccountList::anyAccount(bool (orvAgentSettings::*answer)() const) const {
    return std::any_of(_accountsList.begin(), _accountsList.end(), [answer](const auto& account) {
        return (account->agentSettings().*answer)();
    });
}

bool AccountList::syncEnabled() const {
    return anyAccount(&orvAgentSettings::syncEnabled);
}
bool AccountList::backupEnabled() const {
    return anyAccount(&orvAgentSettings::backupEnabled);
}
bool AccountList::debugTabEnabled() const {
    return anyAccount(&orvAgentSettings::debugTabEnabled);
}

bool AccountList::hasBackupPaths() const {
    return !_accountsList.empty() && hasRoots(_accountsList.front()->storageSettings());
}

bool AccountList::hadBackupPaths() const {
    return !_accountsList.empty() && hasRoots(_accountsList.front()->records().storageSettings);
}

std::int64_t AccountList::runningMinimum(std::int64_t (orvAgentSettings::*value)() const) const {
    std::int64_t minimum = 0;
    for (const auto& account : _accountsList) {
        const std::int64_t next = (account->agentSettings().*value)();
        if (minimum == 0 || next <= minimum) minimum = next;
    }
    return minimum;
}

std::int64_t AccountList::minMbBackupWindowTresholdSetting() const {
    return runningMinimum(&orvAgentSettings::minMbBackupWindowTresholdSetting);
}
std::int64_t AccountList::minFilesBackupWindowTresholdSetting() const {
    return runningMinimum(&orvAgentSettings::minFilesBackupWindowTresholdSetting);
}

}  // namespace orv

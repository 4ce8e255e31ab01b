#include "pane/account/AccountDeletion.h"

#include <fmt/format.h>
#include <memory>
#include <utility>

#include "agentlink/AgentNotifications.h"
#include "agentlink/AgentVocabulary.h"
#include "foundation/files/Existence.h"
#include "foundation/files/SafeRemoval.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;
using quelm::os::RemovalIntent;
using quelm::os::RemovalRules;

std::string projectsOf(const Account& account) {
    return quelm::StandardizePath(account.agentSettings().masterProjectFolder());
}

bool overlap(const std::string& one, const std::string& other) {
    const auto isIn = [](const std::string& path, const std::string& folder) {
        return path == folder || path.starts_with(folder + "/");
    };
    return isIn(one, other) || isIn(other, one);
}

/// Accounts may have come since the process's rules were set, and one folder has many paths.
RemovalRules rulesSparingOthers(const Account& account, const AccountList& accounts) {
    RemovalRules rules = quelm::os::ProcessRemovalRules();
    const auto protect = [&rules](const std::string& folder) {
        if (!folder.empty()) rules.protectedFolders.push_back(folder);
    };
    for (std::size_t i = 0; const Account* const one = accounts.accountAtIndex(i); ++i) {
        protect(one->accountFolderPath());
        if (one != &account) protect(projectsOf(*one));
    }
    return rules;
}

/// Whether it is gone.
bool removeFolder(const std::string& path, const RemovalRules& rules, RemovalIntent intent,
                  const char* what) {
    if (path.empty() || !quelm::IsNameTaken(path)) return true;
    const auto report = quelm::os::RemoveFolderSafely(path, rules, intent);
    if (report.status == quelm::os::EStatusCode::SUCCESS) return true;
    quelm::LogError(fmt::format("Could not delete {} at path: {} error: {}", what, path,
                                static_cast<int>(report.status)));
    return false;
}

std::string whatGoes(const AccountRemains& remains) {
    if (remains.projectsFolder.empty()) {
        return FormatLocalizedString(
            "DeleteAccount.SettingsGo",
            "Its settings in %@ and its passwords are removed from this computer. What is already "
            "stored on the service stays there.",
            {remains.settingsFolder});
    }
    return FormatLocalizedString(
        "DeleteAccount.ProjectsGo",
        "Its settings in %@, its projects in %@ with everything in them, and its passwords are "
        "removed from this computer. What is already stored on the service stays there.",
        {remains.settingsFolder, remains.projectsFolder});
}

}  // namespace

AccountRemains RemainsOf(const Account& account, const AccountList& accounts) {
    AccountRemains remains{account.accountFolderPath(), projectsOf(account)};
    for (std::size_t i = 0; const Account* const other = accounts.accountAtIndex(i); ++i) {
        if (other != &account && overlap(projectsOf(*other), remains.projectsFolder))
            remains.projectsFolder.clear();
    }
    return remains;
}

Alert DeletionQuestion(const Account& account, const AccountRemains& remains) {
    return {.title = GetLocalizedString("DeleteAccount.Title", "Delete account"),
            .message = FormatLocalizedString("DeleteAccount.Question", "Delete the account “%@”?",
                                             {account.agentSettings().configLabel()}),
            .informativeText = whatGoes(remains),
            .buttons = {GetLocalizedString("DeleteAccount.Keep", "Keep"),
                        GetLocalizedString("DeleteAccount.Delete", "Delete")},
            .style = AlertStyle::Critical};
}

void DeleteAccountData(const Account& account, const AccountRemains& remains,
                       const AccountList& accounts, quelm::Background& background,
                       std::function<void(const std::vector<std::string>& leftOver)> done) {
    auto leftOver = std::make_shared<std::vector<std::string>>();
    background.perform(
        [leftOver, settings = account.agentSettings(), agentId = account.agentID(), remains,
         rules = rulesSparingOthers(account, accounts)] {
            using enum RemovalIntent;
            settings.cleanupKeychain();
            if (!removeFolder(remains.settingsFolder, rules, ProtectedFolder, "settings"))
                leftOver->push_back(remains.settingsFolder);
            if (!removeFolder(remains.projectsFolder, rules, UserData, "MPF"))
                leftOver->push_back(remains.projectsFolder);
            // from here, so that the agent hears of it also when the panel ends meanwhile
            NotifyAgentSettingsChanged(agentId, HintAccountRecord);
        },
        [leftOver, done = std::move(done)] { done(*leftOver); });
}

std::string LeftOverText(const std::vector<std::string>& leftOver) {
    std::string paths;
    for (const std::string& path : leftOver)
        paths += "\n" + path;
    return GetLocalizedString("DeleteAccount.LeftOver",
                              "These folders could not be removed whole; the log tells why:") +
           paths;
}

}  // namespace orv

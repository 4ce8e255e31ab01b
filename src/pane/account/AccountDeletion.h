#pragma once

#include <functional>
#include <string>
#include <vector>

#include "accounts/AccountList.h"
#include "foundation/threads/Background.h"
#include "widgets/Alerts.h"

namespace orv {

/// What is removed with an account.
struct AccountRemains {
    std::string settingsFolder;
    /// Empty where another account has its projects there, or in it, or above it.
    std::string projectsFolder;
    bool operator==(const AccountRemains&) const = default;
};
[[nodiscard]] AccountRemains RemainsOf(const Account& account, const AccountList& accounts);

/// Names what goes; the second button deletes.
[[nodiscard]] Alert DeletionQuestion(const Account& account, const AccountRemains& remains);

/// Removes the account's keychain items and its folders, these through the one safe removal, and
/// tells the agent. What belongs to another account of the list stays, by whatever path it is
/// named. `done` gets the folders that could not be removed whole.
void DeleteAccountData(const Account& account, const AccountRemains& remains,
                       const AccountList& accounts, quelm::Background& background,
                       std::function<void(const std::vector<std::string>& leftOver)> done);

/// For the person.
[[nodiscard]] std::string LeftOverText(const std::vector<std::string>& leftOver);

}  // namespace orv

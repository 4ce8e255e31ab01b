#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "accounts/AccountList.h"
#include "cli/Commands.h"
#include "cli/ValueText.h"
#include "foundation/system/LocalizedString.h"

namespace orv::cli {

namespace {

quelm::Dictionary describe(const Account& account) {
    return {{"agentId", account.agentID()},
            {"path", account.accountFolderPath()},
            {"valid", account.isValid()},
            {"label", account.agentSettings().configLabel()}};
}

}  // namespace

ExitCode ListAccounts(const Arguments&, Console& console) {
    const AccountList list(false);
    quelm::Array rows;
    for (std::size_t i = 0; i < list.count(); ++i) {
        const Account& account = *list.accountAtIndex(i);
        rows.push_back(describe(account));
        if (console.json) continue;
        fmt::print(console.out, "{}  {}  {}{}\n", account.agentID(),
                   account.agentSettings().configLabel(), account.accountFolderPath(),
                   account.isValid()
                       ? ""
                       : "  " + quelm::GetLocalizedString("Cli.NotSetUp", "(not set up)"));
    }
    if (console.json) fmt::print(console.out, "{}\n", ValueAsJson(rows));
    return ExitCode::Done;
}

}  // namespace orv::cli

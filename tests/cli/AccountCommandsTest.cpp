#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/Command.h"
#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

TEST(AccountCommands, ListTheAccountsInTheirOrder) {
    orv::ClearConfigBasePath();
    const test_support::TemporaryFolder folder;
    const test_support::ScopedEnvironment home("HOME", folder.path());
    const std::string base = folder / "Library/Preferences/com.corvanta.orv";
    folder.makeFolder("Library/Preferences/com.corvanta.orv/account_9");
    orv::StorePropertiesToFile(base + "/account_9/user_info.plist",
                               quelm::Dictionary{{"config_label", "Work"}});
    std::ostringstream out, err;
    EXPECT_EQ(orv::cli::RunCommandLine({"account", "list", "--json"}, out, err),
              orv::cli::ExitCode::Done);
    const auto rows = nlohmann::json::parse(out.str());
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0]["agentId"], "1");
    EXPECT_EQ(
        rows[1],
        nlohmann::json(
            {{"agentId", "9"}, {"path", base + "/account_9"}, {"valid", true}, {"label", "Work"}}));
    EXPECT_EQ(err.str(), "");
    orv::ClearConfigBasePath();
}

}  // namespace

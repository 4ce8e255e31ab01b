#include <gtest/gtest.h>

#include "config/Deployment.h"
#include "config/PropertyFiles.h"
#include "support/TemporaryFolder.h"

namespace {

TEST(Deployment, TakesWhatItsFileHasAndElseTheBuiltInValues) {
    const test_support::TemporaryFolder folder;
    const auto builtIn = orv::ReadDeployment(folder / "absent");
    EXPECT_NE(builtIn.webServer, builtIn.updateServer);
    const std::string path = folder / "deployment.plist";
    ASSERT_TRUE(orv::StorePropertiesToFile(
        path, quelm::Dictionary{{"web_server", "w"}, {"api_server", ""}, {"update_server", 5}}));
    const auto deployed = orv::ReadDeployment(path);
    EXPECT_EQ(deployed.webServer, "w");
    EXPECT_EQ(deployed.apiServer, builtIn.apiServer);
    EXPECT_EQ(deployed.updateServer, builtIn.updateServer);
}

}  // namespace

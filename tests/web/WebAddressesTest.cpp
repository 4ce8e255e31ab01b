#include <gtest/gtest.h>

#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "support/FakeWorkspace.h"
#include "support/TemporaryFolder.h"
#include "support/web/HTTPConnection.h"
#include "support/web/HttpParameter.h"
#include "support/web/WebAddressHooks.h"

namespace {

using orv::HTTPConnection;

TEST(WebAddresses, OfTheServersAreThoseOfTheAccountsSettings) {
    const test_support::TemporaryFolder folder;
    orv::SetConfigBasePath(folder.path());
    ASSERT_TRUE(orv::StorePropertiesToFile(
        folder / "server_info.plist",
        quelm::Dictionary{{"web_server", "http://w"}, {"api_server", "a.example"}}));
    EXPECT_EQ(HTTPConnection::apiBaseUrl(), "https://a.example");
    EXPECT_EQ(HTTPConnection::webBaseUrl(), "http://w");
    orv::ClearConfigBasePath();
}

TEST(WebAddresses, OpenWithTheAccountThatTheyComeFrom) {
    test_support::FakeWorkspace workspace;
    EXPECT_TRUE(HTTPConnection::openUrl("https://w/p", workspace));
    orv::ProcessWebAddressHooks().rcid = [] { return "1 7"; };
    EXPECT_TRUE(HTTPConnection::openUrl("https://w/p?x=1", workspace));
    EXPECT_TRUE(HTTPConnection::openUrl("https://w/p?RcId=5", workspace));
    workspace.opens = false;
    EXPECT_FALSE(HTTPConnection::openUrl("https://w/p", workspace));
    orv::ProcessWebAddressHooks() = {};
    EXPECT_EQ(
        workspace.openedAddresses,
        (std::vector<std::string>{"https://w/p?sourcercid=", "https://w/p?x=1&sourcercid=1%207",
                                  "https://w/p?RcId=5", "https://w/p?sourcercid=1%207"}));
}

TEST(WebAddresses, AreLoggedByTheirSchemeAndHost) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"https://a.example/p?password=x", "https://a.example"},
        {"https://a?password=x", "https://a"},
        {"https://a#password", "https://a"},
        {"https://a\\password", "https://a"},
        {"https://me:password@a:80/x@y", "https://a"},
        {"https://p@ss:word@a", "https://a"},
        {"http://[::1]:80/password", "http://[::1]"},
        {"https://", "https://"},
        {"/password?u=http://b", ""},
        {"password", ""},
        {"", ""},
    };
    for (const auto& [address, shown] : cases)
        EXPECT_EQ(orv::SchemeAndHostOf(address), shown) << address;
}

}  // namespace

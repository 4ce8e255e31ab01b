#include <gtest/gtest.h>

#include "accounts/FingerprintSettings.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/Log.h"
#include "platform/Services.h"
#include "support/ProcessNotifications.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::orv_FingerprintSettings;
using quelm::Array;
using quelm::Dictionary;

class FingerprintSettings : public testing::Test {
 protected:
    FingerprintSettings() {
        quelm::SetLogSink([this](std::string_view) { ++logged_; });
    }
    ~FingerprintSettings() override { quelm::SetLogSink({}); }

    test_support::ProcessNotifications center_;
    test_support::TemporaryFolder folder_;
    int logged_ = 0;
    const Array rows_ = {Dictionary{{"any", "key"}}, 3, "text"};
};

TEST_F(FingerprintSettings, ComeBackAsTheyWereStoredAndTheAccountsAgentIsTold) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"plain", "1"}, {"account_7", "7"}, {"my account_a/account_b", "a"}, {"account_", ""}};
    for (const auto& [name, agent] : cases) {
        const std::string folder = folder_.makeFolder(name);
        orv_FingerprintSettings stored(folder);
        stored.setFingerprintsArray(rows_);
        EXPECT_TRUE(stored.store()) << name;
        EXPECT_EQ(center_->posted().back().payload,
                  (Dictionary{{"agent-id", agent}, {"hint", 2048}}));
        orv_FingerprintSettings loaded(folder);
        EXPECT_FALSE(loaded.isEqualToAgentSettings(stored));
        EXPECT_TRUE(loaded.load());
        EXPECT_TRUE(loaded.isEqualToAgentSettings(stored));
        EXPECT_EQ(loaded.getFingerprintsArray(), rows_);
    }
}

TEST_F(FingerprintSettings, KeepWhatTheyHaveWhenThereIsNothingToRead) {
    orv_FingerprintSettings settings(folder_.path());
    settings.setFingerprintsArray(rows_);
    EXPECT_FALSE(settings.load());
    for (const std::string& content :
         {std::string("<plist>"), *quelm::WritePropertyList(Dictionary{{"a", 1}})}) {
        folder_.makeFile("finger_prints.plist", content);
        logged_ = 0;
        EXPECT_FALSE(settings.load());
        EXPECT_EQ(logged_, 1) << content;
        EXPECT_EQ(settings.getFingerprintsArray(), rows_);
    }
    EXPECT_FALSE(settings.loadFromSpecificPath(folder_ / "no/such"));
    EXPECT_FALSE(settings.storeToSpecificPath(folder_ / "no/such"));
    orv_FingerprintSettings nowhere("");
    EXPECT_FALSE(nowhere.load());
    EXPECT_FALSE(nowhere.store());
    EXPECT_TRUE(center_->posted().empty());
}

}  // namespace

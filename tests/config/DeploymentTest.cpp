#include <gtest/gtest.h>

#include "config/Deployment.h"
#include "config/PropertyFiles.h"
#include "foundation/system/Log.h"
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

class Certificates : public testing::Test {
 protected:
    Certificates() {
        quelm::SetLogSink([this](std::string_view line) { log_.append(line).append("\n"); });
    }
    ~Certificates() override { quelm::SetLogSink(nullptr); }

    orv::CertificateRules rulesOf(const quelm::Dictionary& values) {
        log_.clear();
        EXPECT_TRUE(orv::StorePropertiesToFile(path_, values));
        return orv::ReadDeployment(path_).certificates;
    }

    test_support::TemporaryFolder folder_;
    std::string path_ = folder_ / "deployment.plist";
    std::string log_;
};

const std::string onePin = "sha256//" + std::string(43, 'A') + "=";

TEST_F(Certificates, OfAnyServerAreAcceptedUnlessTheDeploymentHasRules) {
    EXPECT_FALSE(orv::ReadDeployment(folder_ / "absent").certificates.areSet());
    EXPECT_FALSE(rulesOf({{"web_server", "w"}}).areSet());
    const std::string pins = onePin + ";" + onePin;
    const auto rules = rulesOf({{"certificate_authorities", "/ca.pem"}, {"certificate_pin", pins}});
    EXPECT_TRUE(rules.areSet());
    EXPECT_FALSE(rules.areMalformed);
    EXPECT_EQ(rules.authorities, "/ca.pem");
    EXPECT_EQ(rules.pin, pins);
    EXPECT_EQ(log_, "");
}

TEST_F(Certificates, OfNoServerAreAcceptedWhenARuleIsMalformedWhichTheLogNames) {
    const std::vector<std::pair<const char*, quelm::Value>> cases = {
        {"certificate_authorities", ""},
        {"certificate_authorities", "ca.pem"},
        {"certificate_authorities", true},
        {"certificate_pin", ""},
        {"certificate_pin", "/key.pem"},
        {"certificate_pin", "sha256//AAAA"},
        {"certificate_pin", onePin.substr(0, onePin.size() - 1)},
        {"certificate_pin", onePin + ";"},
        {"certificate_pin", "sha256//" + std::string(42, 'A') + "B="},
        {"certificate_pin", quelm::Array{onePin}},
    };
    for (const auto& [key, value] : cases) {
        EXPECT_TRUE(rulesOf({{key, value}, {"web_server", "w"}}).areMalformed) << value;
        EXPECT_NE(log_.find('"' + std::string(key) + '"'), std::string::npos) << log_;
    }
}

TEST_F(Certificates, OfNoServerAreAcceptedWhenTheFileIsThereAndCannotBeRead) {
    for (const char* content : {"", "garbage", "<plist><array/></plist>"}) {
        log_.clear();
        folder_.makeFile("deployment.plist", content);
        EXPECT_TRUE(orv::ReadDeployment(path_).certificates.areMalformed) << content;
        EXPECT_NE(log_.find(path_), std::string::npos) << log_;
    }
}

}  // namespace

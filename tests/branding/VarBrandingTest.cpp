#include <gtest/gtest.h>

#include "config/ConfigurationPath.h"
#include "config/Deployment.h"
#include "config/PropertyFiles.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/Log.h"
#include "support/ApplicationNames.h"
#include "support/BrandingInfo.h"
#include "support/TemporaryFolder.h"
#include "support/VarBranding.h"

namespace {

using orv::BrandText;
using orv::orv_VarBranding;
using quelm::Dictionary;

class VarBranding : public testing::Test {
 protected:
    VarBranding() {
        orv::SetConfigBasePath(folder_.path());
        quelm::SetLogSink([this](std::string_view line) { log_.emplace_back(line); });
        // whatever an earlier test has left
        use({{"short_agent_name", "Tidewell Backup"}});
        static_cast<void>(orv_VarBranding::instance());
        std::filesystem::remove(folder_ / "branding.plist");
        use({});
    }
    ~VarBranding() override {
        quelm::SetLogSink({});
        orv::ClearConfigBasePath();
    }

    /// Merges into the file and drops the shared brand.
    void use(const Dictionary& params) {
        EXPECT_TRUE(orv_VarBranding::storeParams(params));
        std::filesystem::remove(folder_ / "server_info.plist");
        if (params.empty()) std::filesystem::remove(folder_ / "branding.plist");
    }

    test_support::TemporaryFolder folder_;
    std::vector<std::string> log_;
};

TEST_F(VarBranding, IsBuiltInWithoutAFile) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"Enter your $(BRAND_LONG_NAME) password", "Enter your Corvanta Tidewell Backup password"},
        {"$(BRAND_SHORT_NAME)|$(BRAND_SHORT_SERVICE)|$(BRAND_LONG_SERVICE)|$(BRAND_COMPANY_NAME)",
         "Tidewell Backup|Tidewell|Corvanta Tidewell Backup|Corvanta"},
        {"$(VERSION) of $(BUILD_DATE), $(PROTOCOL_VERSION)",
         "7.2.33 of Thu Dec 21 17:11:39 2017, 433"},
        {"[$(BUILD_TYPE:-%s)$(BUILD_TYPE:BUILD TYPE: %s)]", "[]"},
        {"$(COPYRIGHT_STRING)", orv::CurrentDeployment().copyright},
        {"$(account-setup.default.shares), $(account-setup.default.filter)", "Documents, all"},
        {"$(BUILD_TYPE:%s) $(version)", "$(BUILD_TYPE:%s) $(version)"},
    };
    for (const auto& [text, result] : cases)
        EXPECT_EQ(BrandText(text), result);
    EXPECT_EQ(orv_VarBranding::instance()->processString(std::nullopt), "");
    EXPECT_TRUE(orv_VarBranding::instance()->images().empty());
    EXPECT_FALSE(std::filesystem::exists(folder_ / "branding.plist")) << "looking makes no file";
    EXPECT_EQ(log_, std::vector<std::string>{});
}

TEST_F(VarBranding, TakesNamesColoursAndServerFromItsFile) {
    const auto before = orv_VarBranding::instance();
    use({{"short_agent_name", "Acme"},
         {"long_agent_name", "Acme Backup"},
         {"web_app_name", "Acme Cloud"},
         {"company", ""},
         {"copyright_string", 12},
         {"header_text_color", "#FFF"},
         {"header_text_bgcolor", "#0a0B0c"},
         {"general_url", "backup.acme.example"},
         {"$(VERSION)", "8"},
         {"logo_bitmap_url", "https://acme.example/logo.png"},
         {"loftmere_folder_icon_url", "javascript:alert(1)"}});
    static_cast<void>(orv::StoreBrandingInfo({{"future_key", "kept"}}));
    const auto brand = orv_VarBranding::instance();
    EXPECT_EQ(brand->processString("$(BRAND_SHORT_NAME), $(BRAND_LONG_NAME), $(VERSION)"),
              "Acme, Acme Backup, 7.2.33");
    EXPECT_EQ(brand->processString("$(BRAND_SHORT_SERVICE), $(BRAND_LONG_SERVICE)"),
              "Acme Cloud, Acme Cloud");
    EXPECT_EQ(orv_VarBranding::createLoftmereFolderString(), "Acme Cloud");
    EXPECT_EQ(brand->processString("$(BRAND_COMPANY_NAME), $(COPYRIGHT_STRING)"),
              "Corvanta, " + orv::CurrentDeployment().copyright);
    EXPECT_EQ(orv::ApplicationShortName, "Acme");
    EXPECT_EQ(orv::ApplicationLongName, "Acme Backup");
    EXPECT_EQ(brand->headerTextColor(), std::nullopt);
    EXPECT_EQ(brand->headerTextBgColor(), (orv::HexColor{10, 11, 12}));
    EXPECT_EQ(before->processString("$(BRAND_SHORT_NAME)"), "Tidewell Backup")
        << "who still holds the old brand may go on with it";

    const orv::BrandImage logo = {"logo", "https://acme.example/logo.png"};
    const orv::BrandImage banner = {"banner-background",
                                    orv::FilledRectangle{560, 65, {10, 11, 12}}};
    EXPECT_EQ(brand->images(),
              (orv::BrandImageTable{
                  {"logo", logo}, {10, logo}, {"banner-background", banner}, {12, banner}}));
    ASSERT_EQ(log_.size(), 1U);
    EXPECT_NE(log_[0].find("loftmere_folder_icon_url"), std::string::npos);

    const auto server = orv::LoadPropertiesFromFile(folder_ / "server_info.plist");
    ASSERT_TRUE(server && server->asDictionary());
    EXPECT_EQ(*server->asDictionary()->find("web_server"), quelm::Value("backup.acme.example"));
    EXPECT_NE(orv::LoadBrandingInfo()->find("future_key"), nullptr);
}

TEST_F(VarBranding, KeepsTheNameOfTheServerWithoutOneOfItsOwn) {
    folder_.makeFile("server_info.plist",
                     *quelm::WritePropertyList(Dictionary{{"web_server", "a"}, {"other", 1}}));
    EXPECT_TRUE(orv::StoreBrandingInfo({{"company", "Acme"}, {"general_url", ""}}));
    EXPECT_EQ(BrandText("$(BRAND_COMPANY_NAME)"), "Acme");
    EXPECT_EQ(orv::LoadPropertiesFromFile(folder_ / "server_info.plist"),
              quelm::Value(Dictionary{{"other", 1}, {"web_server", "a"}}));
}

TEST_F(VarBranding, LeavesServersThatItCannotRead) {
    EXPECT_TRUE(orv::StoreBrandingInfo({{"general_url", "acme.example"}}));
    folder_.makeFile("server_info.plist", "<plist><dict><key>web_s");
    static_cast<void>(orv_VarBranding::instance());
    EXPECT_EQ(test_support::ContentOf(folder_ / "server_info.plist"), "<plist><dict><key>web_s");
}

TEST_F(VarBranding, IsBuiltInForAFileThatCannotBeRead) {
    for (const char* content : {"", "no property list", "<plist><array/></plist>"}) {
        use({});
        log_.clear();
        folder_.makeFile("branding.plist", content);
        EXPECT_EQ(BrandText("$(BRAND_SHORT_NAME)"), "Tidewell Backup") << content;
        ASSERT_EQ(log_.size(), 1U) << content;
        EXPECT_NE(log_[0].find("replace or remove"), std::string::npos);
        EXPECT_EQ(test_support::ContentOf(folder_ / "branding.plist"), content);
    }
}

TEST_F(VarBranding, TakesNoValueOfUnreasonableLength) {
    use({{"company", std::string(4097, 'x')}, {"web_app_name", std::string(4096, 'y')}});
    EXPECT_EQ(BrandText("$(BRAND_COMPANY_NAME)"), "Corvanta");
    EXPECT_EQ(BrandText("$(BRAND_SHORT_SERVICE)"), std::string(4096, 'y'));
}

TEST(BrandImages, ComeOnlyFromTheWebAndFromFiles) {
    for (const char* address : {"https://a", "HTTP://a.example:80/x?y#z", "file:///a/b.png",
                                "File://localhost/a", "http://[::1]/x"}) {
        EXPECT_TRUE(orv::IsImageAddress(address)) << address;
    }
    for (const std::string& address :
         {std::string(), std::string("https://"), std::string("http:///x"),
          std::string("http://:80"), std::string("ftp://a/b"),
          std::string("data:image/png;base64,AA"), std::string("/a/b"), std::string("file://"),
          std::string("file:///"), std::string("file://host/a"), std::string("https://a/ b"),
          std::string("https://a/\n"), std::string("https://a\0b", 11), std::string("https://a\\b"),
          "https://a/" + std::string(2048, 'x')}) {
        EXPECT_FALSE(orv::IsImageAddress(address)) << address;
    }
}

}  // namespace

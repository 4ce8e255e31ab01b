#include "support/VarBranding.h"

#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "config/PropertyFiles.h"
#include "config/UpdateSettings.h"
#include "foundation/files/Existence.h"
#include "foundation/system/Log.h"
#include "support/ApplicationNames.h"
#include "support/BrandingInfo.h"
#include "support/InterfaceBranding.h"

namespace orv {

namespace {

std::shared_ptr<orv_VarBranding>& sharedBrand() {
    static std::shared_ptr<orv_VarBranding> brand;
    return brand;
}

void storeWebServer(const std::string& name) {
    orvUpdateSettings settings;
    const std::string path = GetConfigurationPath(files::serverInfo);
    if (!settings.loadSettings() && quelm::Exists(path)) {
        // just being written, or damaged: what it says of the other servers is not known
        quelm::LogWarning(path + " cannot be read, so the brand's web server is not used yet.");
        return;
    }
    if (settings.webServerName() == name && quelm::Exists(path)) return;
    settings.setWebServerName(name);
    if (settings.store()) return;
    quelm::LogWarning("The brand's web server cannot be stored, so it is not used.");
}

}  // namespace

std::shared_ptr<orv_VarBranding> orv_VarBranding::instance() {
    if (const auto& brand = sharedBrand()) return brand;
    // shared before it is loaded: what loading calls may ask for texts in the brand
    auto brand = std::make_shared<orv_VarBranding>();
    sharedBrand() = brand;
    brand->load();
    return brand;
}

bool orv_VarBranding::storeParams(const quelm::Dictionary& params) {
    const bool stored = StoreBrandingInfo(params);
    sharedBrand().reset();
    return stored;
}

std::string orv_VarBranding::createLoftmereFolderString() {
    return instance()->processString("$(BRAND_LONG_SERVICE)");
}

orv_VarBranding::orv_VarBranding() : _strings(BrandVariables({})) {}

void orv_VarBranding::load() {
    const auto info = LoadBrandingInfo();
    if (!info) return;
    _strings = BrandVariables(*info);
    ApplicationShortName = _strings["$(BRAND_SHORT_NAME)"];
    ApplicationLongName = _strings["$(BRAND_LONG_NAME)"];
    _headerTextColor = BrandingColor(*info, "header_text_color");
    _headerTextBgColor = BrandingColor(*info, "header_text_bgcolor");
    _images = BrandImages(*info, _headerTextBgColor);
    const std::string webServer = BrandingText(*info, "general_url");
    if (!webServer.empty()) storeWebServer(webServer);
}

std::string orv_VarBranding::processString(const std::optional<std::string>& text) const {
    return text ? ReplaceVariables(*text, _strings) : std::string();
}

void orv_VarBranding::processAttributedString(StyledText& text) const {
    ReplaceVariables(text, _strings);
}

void orv_VarBranding::process(InterfaceElement& element) const {
    InterfaceBranding(*this).apply(element);
}

std::string BrandText(const std::string& text) {
    return orv_VarBranding::instance()->processString(text);
}

}  // namespace orv

#include "support/BrandingInfo.h"

#include <array>
#include <filesystem>
#include <string_view>

#include "config/ConfigurationPath.h"
#include "config/Deployment.h"
#include "config/Locations.h"
#include "config/ProductVersion.h"
#include "config/PropertyAccess.h"
#include "config/PropertyFiles.h"
#include "foundation/files/Existence.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

struct Variable {
    const char* name;
    std::string_view builtIn;
    /// The key that overrides it; null for none.
    const char* key = nullptr;
};

constexpr std::array variables = {
    Variable{"$(BRAND_SHORT_NAME)", "Tidewell Backup", "short_agent_name"},
    Variable{"$(BRAND_LONG_NAME)", "Corvanta Tidewell Backup", "long_agent_name"},
    Variable{"$(BRAND_SHORT_SERVICE)", "Tidewell", "web_app_name"},
    Variable{"$(BRAND_LONG_SERVICE)", "Corvanta Tidewell Backup", "web_app_name"},
    Variable{"$(BRAND_COMPANY_NAME)", "Corvanta", "company"},
    Variable{"$(VERSION)", product::version},
    Variable{"$(BUILD_DATE)", product::buildDate},
    Variable{"$(PROTOCOL_VERSION)", product::protocolVersion},
    Variable{"$(BUILD_TYPE:-%s)", ""},
    Variable{"$(BUILD_TYPE:BUILD TYPE: %s)", ""},
    Variable{"$(account-setup.default.shares)", "Documents"},
    Variable{"$(account-setup.default.filter)", "all"},
};

std::string valueOr(const quelm::Dictionary& info, const char* key, std::string_view builtIn) {
    std::string value = key != nullptr ? BrandingText(info, key) : std::string();
    return value.empty() ? std::string(builtIn) : value;
}

}  // namespace

std::optional<quelm::Dictionary> LoadBrandingInfo() {
    const std::string path = GetConfigurationPath(files::branding);
    if (!quelm::Exists(path)) return std::nullopt;
    auto file = quelm::ReadPropertyListFile(path);
    const auto* const info = file.value ? file.value->asDictionary() : nullptr;
    if (info) return *info;
    quelm::LogWarning(
        path + " is no branding file: " + (file.value ? "it holds no dictionary" : file.error) +
        ". The product's own names are used; replace or remove the file.");
    return std::nullopt;
}

bool StoreBrandingInfo(const quelm::Dictionary& changes) {
    return ChangePropertiesInFile(GetConfigurationPath(files::branding), changes);
}

std::string BrandingText(const quelm::Dictionary& info, const char* key) {
    constexpr std::size_t mostBytes = 4096;
    std::string text = GetStringPropertyWithDefault(info, key, "");
    if (text.size() <= mostBytes) return text;
    quelm::LogWarning(std::string("The branding file's \"") + key +
                      "\" is longer than 4,096 bytes and is not used. Shorten it.");
    return {};
}

std::optional<HexColor> BrandingColor(const quelm::Dictionary& info, const char* key) {
    return ParseHexColor(BrandingText(info, key));
}

TextVariables BrandVariables(const quelm::Dictionary& info) {
    TextVariables values;
    for (const auto& [name, builtIn, key] : variables)
        values[name] = valueOr(info, key, builtIn);
    values["$(COPYRIGHT_STRING)"] =
        valueOr(info, "copyright_string", CurrentDeployment().copyright);
    return values;
}

}  // namespace orv

#include "config/CertificateRules.h"

#include <array>
#include <string_view>

#include "config/PropertyAccess.h"
#include "foundation/system/Log.h"
#include "foundation/texts/Base64.h"

namespace orv {

namespace {

bool isAbsolutePath(std::string_view text) {
    return text.starts_with('/') && text.find('\0') == text.npos;
}

/// A SHA-256 digest has 32 bytes; nothing but the one way to write them counts.
bool isPin(std::string_view text) {
    constexpr std::string_view prefix = "sha256//";
    if (!text.starts_with(prefix)) return false;
    const std::string_view digest = text.substr(prefix.size());
    const auto bytes = quelm::DecodeBase64(digest);
    return bytes && bytes->size() == 32 && quelm::EncodeBase64(*bytes) == digest;
}

bool arePins(std::string_view text) {
    for (auto end = text.find(';'); end != text.npos; end = text.find(';')) {
        if (!isPin(text.substr(0, end))) return false;
        text.remove_prefix(end + 1);
    }
    return isPin(text);
}

struct Rule {
    const char* key;
    std::string CertificateRules::*member;
    bool (*isWellFormed)(std::string_view);
    const char* form;
};

constexpr auto rules = std::to_array<Rule>({
    {"certificate_authorities", &CertificateRules::authorities, isAbsolutePath,
     "the absolute path of a PEM bundle"},
    {"certificate_pin", &CertificateRules::pin, arePins, "\"sha256//BASE64\""},
});

}  // namespace

CertificateRules ReadCertificateRules(const quelm::Dictionary& values) {
    CertificateRules read;
    for (const auto& [key, member, isWellFormed, form] : rules) {
        if (values.find(key) == nullptr) continue;
        const auto text = GetStringProperty(values, key);
        if (text && isWellFormed(*text)) {
            read.*member = *text;
            continue;
        }
        read.areMalformed = true;
        quelm::LogError(std::string("The deployment's \"") + key + "\" is not " + form +
                        ": no server is accepted.");
    }
    return read;
}

}  // namespace orv

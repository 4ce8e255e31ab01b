#include "platform/linux/secrets/SecretAttributes.h"

#include <algorithm>
#include <glib.h>

namespace platform {

namespace {

/// Texts of a key are names and paths, not documents.
constexpr std::size_t largestAttribute = std::size_t{64} * 1024;

std::string codeText(std::uint32_t code) {
    std::string text;
    if (code == 0) return text;
    for (int shift = 24; shift >= 0; shift -= 8)
        text += static_cast<char>((code >> shift) & 0xff);
    return text;
}

SecretAttributes attributesOf(const GenericPasswordItem& item) {
    return {{"xdg:schema", "com.corvanta.orv.GenericPassword"},
            {"service", item.service},
            {"account", item.account}};
}

SecretAttributes attributesOf(const InternetPasswordItem& item) {
    SecretAttributes attributes = {{"xdg:schema", "com.corvanta.orv.InternetPassword"},
                                   {"server", item.server},
                                   {"account", item.account},
                                   {"port", std::to_string(item.port)},
                                   {"protocol", codeText(item.protocol)},
                                   {"authentication", "default"}};
    if (item.path) attributes.emplace("path", *item.path);
    return attributes;
}

}  // namespace

SecretAttributes AttributesOf(const KeychainItem& item) {
    return std::visit([](const auto& kind) { return attributesOf(kind); }, item);
}

bool IsMeant(const SecretAttributes& found, const SecretAttributes& wanted) {
    return wanted.contains("path") || !found.contains("path");
}

bool IsSendable(const std::string& text) {
    return text.size() <= largestAttribute &&
           g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr) != FALSE;
}

bool AreSendable(const SecretAttributes& attributes) {
    return std::ranges::all_of(attributes,
                               [](const auto& attribute) { return IsSendable(attribute.second); });
}

}  // namespace platform

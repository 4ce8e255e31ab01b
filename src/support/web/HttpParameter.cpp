#include "support/web/HttpParameter.h"

#include <algorithm>

#include "foundation/texts/CaseFolding.h"

namespace orv {

namespace {

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// As RFC 3986 has it.
bool hasScheme(std::string_view text) {
    const auto colon = text.find(':');
    const auto scheme = text.substr(0, colon);
    return colon != text.npos && !scheme.empty() && isLetter(scheme.front()) &&
           text.substr(colon).starts_with("://") && std::ranges::all_of(scheme, [](char c) {
               return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
           });
}

}  // namespace

std::string EncodeHttpParameter(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    encoded.reserve(text.size());
    for (const char c : text) {
        if (isLetter(c) || isDigit(c)) {
            encoded += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        encoded.append({'%', digits[byte >> 4U], digits[byte & 15U]});
    }
    return encoded;
}

std::string WithSourceAccount(std::string_view address, std::string_view rcid) {
    std::string whole(address);
    if (quelm::FoldedCase(address).find("rcid") != std::string::npos) return whole;
    whole += address.find('?') == address.npos ? '?' : '&';
    return whole.append("sourcercid=").append(EncodeHttpParameter(rcid));
}

std::string SchemeAndHostOf(std::string_view address) {
    if (!hasScheme(address)) return {};
    const auto start = address.find("://") + 3;
    std::string_view host = address.substr(start);
    host = host.substr(0, host.find_first_of("/?#\\"));
    host.remove_prefix(host.rfind('@') + 1);                       // npos + 1 is 0
    const auto name = host.starts_with('[') ? host.find(']') : 0;  // an IPv6 address has colons
    return std::string(address.substr(0, start)).append(host.substr(0, host.find(':', name)));
}

std::string BaseUrlOf(std::string_view serverName) {
    return hasScheme(serverName) ? std::string(serverName)
                                 : std::string("https://").append(serverName);
}

}  // namespace orv

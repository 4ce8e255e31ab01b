#include "platform/linux/TrashInfo.h"

#include <array>

namespace platform {

std::string TrashInfoText(std::string_view originalPath, const std::tm& deleted) {
    std::array<char, 32> date = {};
    const std::size_t length =
        std::strftime(date.data(), date.size(), "%Y-%m-%dT%H:%M:%S", &deleted);
    return "[Trash Info]\nPath=" + PercentEncodedPath(originalPath) +
           "\nDeletionDate=" + std::string(date.data(), length) + "\n";
}

std::string PercentEncodedPath(std::string_view path) {
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : path) {
        if (plain.find(c) != std::string_view::npos) {
            encoded += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        encoded.append({'%', digits[byte / 16U], digits[byte % 16U]});
    }
    return encoded;
}

}  // namespace platform

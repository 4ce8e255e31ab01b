#include "foundation/texts/Texts.h"

#include <fmt/printf.h>

namespace quelm {

std::string FileSizeString(std::int64_t bytes) {
    constexpr std::int64_t kilobyte = 1'024;
    constexpr std::int64_t megabyte = 1'048'576;
    constexpr std::int64_t gigabyte = 1'073'741'824;
    const auto in = [bytes](std::int64_t unit) {
        return static_cast<double>(bytes) / static_cast<double>(unit);
    };
    if (bytes < kilobyte) return fmt::sprintf("%lld B", bytes);
    if (bytes < megabyte) return fmt::sprintf("%.1f KB", in(kilobyte));
    if (bytes < gigabyte) return fmt::sprintf("%.1f MB", in(megabyte));
    return fmt::sprintf("%.1f GB", in(gigabyte));
}

std::string DateToString(std::time_t seconds, bool numeric) {
    if (numeric) return fmt::sprintf("%lu", static_cast<unsigned long>(seconds));
    std::tm local = {};
    localtime_r(&seconds, &local);
    return fmt::sprintf("%04d-%02d-%02d %02d:%02d:%02d", local.tm_year + 1900, local.tm_mon + 1,
                        local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
}

std::uint64_t Hash(std::string_view text) {
    std::uint64_t hash = 5381;
    for (const char c : text) {
        hash = hash * 33 + static_cast<std::uint64_t>(static_cast<signed char>(c));
    }
    return hash;
}

}  // namespace quelm

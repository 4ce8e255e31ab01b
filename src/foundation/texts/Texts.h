#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

namespace quelm {

/// "17 B", "1.5 KB", "2.0 MB" or "3.1 GB" by powers of 1024; not localised.
[[nodiscard]] std::string FileSizeString(std::int64_t bytes);

/// Local time as "2026-01-31 23:59:59", or with `numeric` the seconds since 1970 as they are.
[[nodiscard]] std::string DateToString(std::time_t seconds, bool numeric);

/// 5381, then hash * 33 + byte for every byte, taken as signed.
[[nodiscard]] std::uint64_t Hash(std::string_view text);

}  // namespace quelm

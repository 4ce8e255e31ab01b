#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quelm {

/// "2026-01-31T23:59:59Z" as seconds since 1970; none for any other form and for dates that the
/// calendar does not have.
[[nodiscard]] std::optional<std::int64_t> ParseIsoDate(std::string_view text);

/// The reverse, with fractions of a second dropped; none outside the years 1 to 9999.
[[nodiscard]] std::optional<std::string> FormatIsoDate(double secondsSince1970);

}  // namespace quelm

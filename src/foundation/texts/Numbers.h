#pragma once

#include <cstdint>
#include <string_view>

namespace quelm {

/// The decimal number that the text begins with, after blanks and a sign; the nearest one where 64
/// bits do not hold it, 0 without one.
[[nodiscard]] std::int64_t LeadingInteger(std::string_view text);

/// Whether the text, after blanks, a sign and zeros, goes on with a digit other than 0 or with one
/// of "YyTt".
[[nodiscard]] bool IsTrueText(std::string_view text);

}  // namespace quelm

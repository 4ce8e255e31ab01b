#include "foundation/texts/Numbers.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace quelm {

namespace {

using Limits = std::numeric_limits<std::int64_t>;

std::string_view without(std::string_view leading, std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(leading), text.size()));
    return text;
}

constexpr std::string_view blanks = " \t\r\n";

}  // namespace

std::int64_t LeadingInteger(std::string_view text) {
    text = without(blanks, text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc::result_out_of_range) return number;
    return text.starts_with('-') ? Limits::min() : Limits::max();
}

bool IsTrueText(std::string_view text) {
    text = without(blanks, text);
    if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
    text = without("0", text);
    return !text.empty() && std::string_view("123456789YyTt").find(text[0]) != text.npos;
}

}  // namespace quelm

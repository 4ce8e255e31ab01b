#include "foundation/propertylist/PropertyListLeaves.h"

#include <charconv>
#include <utility>

#include "foundation/texts/Base64.h"
#include "foundation/texts/IsoDate.h"

namespace quelm {

namespace {

constexpr std::string_view whiteSpace = " \t\r\n";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(whiteSpace) == std::string_view::npos;
}

template <typename Number>
bool parseWhole(std::string_view text, Number& number, auto... base) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base...);
    return error == std::errc() && stop == end && !text.empty();
}

}  // namespace

std::optional<Value> ParsePropertyInteger(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) return std::nullopt;
    }
    std::int64_t number = 0;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        text.remove_prefix(2);
        if (text.starts_with('-') || !parseWhole(text, number, 16)) return std::nullopt;
    } else if (!parseWhole(text, number)) {
        return std::nullopt;
    }
    return number;
}

std::optional<Value> ParsePropertyReal(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) return std::nullopt;
    }
    double number = 0;
    if (!parseWhole(text, number)) return std::nullopt;
    return number;
}

std::optional<Value> ParsePropertyDate(std::string_view text) {
    const auto seconds = ParseIsoDate(trimmed(text));
    if (!seconds) return std::nullopt;
    return Date{static_cast<double>(*seconds)};
}

std::optional<Value> ParsePropertyData(std::string_view text) {
    auto bytes = DecodeBase64(text);
    if (!bytes) return std::nullopt;
    return Data{std::move(*bytes)};
}

std::optional<Value> ParsePropertyTrue(std::string_view text) {
    return isBlank(text) ? std::optional<Value>(true) : std::nullopt;
}

std::optional<Value> ParsePropertyFalse(std::string_view text) {
    return isBlank(text) ? std::optional<Value>(false) : std::nullopt;
}

}  // namespace quelm

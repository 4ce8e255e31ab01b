#include "foundation/texts/FormatText.h"

#include <array>
#include <charconv>
#include <fmt/format.h>

namespace quelm {

namespace {

using Content = FormatArgument::Content;

std::optional<std::string> anyText(const Content& content) {
    return std::visit([](const auto& value) { return fmt::format("{}", value); }, content);
}

std::optional<std::string> wholeNumber(const Content& content) {
    if (const auto* number = std::get_if<std::int64_t>(&content)) return fmt::format("{}", *number);
    if (const auto* number = std::get_if<std::uint64_t>(&content))
        return fmt::format("{}", *number);
    return std::nullopt;
}

std::optional<double> asReal(const Content& content) {
    if (const auto* number = std::get_if<double>(&content)) return *number;
    if (const auto* number = std::get_if<std::int64_t>(&content)) {
        return static_cast<double>(*number);
    }
    if (const auto* number = std::get_if<std::uint64_t>(&content)) {
        return static_cast<double>(*number);
    }
    return std::nullopt;
}

std::optional<std::string> oneDecimal(const Content& content) {
    const auto number = asReal(content);
    return number ? std::optional(fmt::format("{:.1f}", *number)) : std::nullopt;
}

std::optional<std::string> noDecimals(const Content& content) {
    const auto number = asReal(content);
    return number ? std::optional(fmt::format("{:.0f}", *number)) : std::nullopt;
}

struct Directive {
    std::string_view text;
    std::optional<std::string> (*print)(const Content&);
};

constexpr std::array<Directive, 10> directives = {{
    {"@", anyText},
    {"s", anyText},
    {"d", wholeNumber},
    {"u", wholeNumber},
    {"ld", wholeNumber},
    {"lu", wholeNumber},
    {"lld", wholeNumber},
    {"qd", wholeNumber},
    {".1f", oneDecimal},
    {".0f", noDecimals},
}};

/// Takes "2$" off the text and answers the second argument's index; none without a position.
std::optional<std::size_t> takePosition(std::string_view& text) {
    std::size_t position = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), position);
    const auto length = static_cast<std::size_t>(end - text.data());
    if (error != std::errc() || length == text.size() || *end != '$') return std::nullopt;
    text.remove_prefix(length + 1);
    return position - 1;  // "0$" wraps around to an index beyond all arguments
}

const Directive* takeDirective(std::string_view& text) {
    for (const Directive& directive : directives) {
        if (!text.starts_with(directive.text)) continue;
        text.remove_prefix(directive.text.size());
        return &directive;
    }
    return nullptr;
}

}  // namespace

std::optional<std::string> FormatText(std::string_view format, FormatArguments arguments) {
    std::string out;
    std::size_t next = 0;
    while (true) {
        const auto percent = format.find('%');
        out += format.substr(0, percent);
        if (percent == std::string_view::npos) return out;
        format.remove_prefix(percent + 1);
        if (format.starts_with('%')) {
            format.remove_prefix(1);
            out += '%';
            continue;
        }
        const auto position = takePosition(format);
        const Directive* directive = takeDirective(format);
        const std::size_t index = position ? *position : next++;
        if (directive == nullptr || index >= arguments.size()) return std::nullopt;
        const auto text = directive->print(arguments[index].content());
        if (!text) return std::nullopt;
        out += *text;
    }
}

}  // namespace quelm

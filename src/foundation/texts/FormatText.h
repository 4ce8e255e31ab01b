#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace quelm {

/// One argument of a text format.
class FormatArgument {
 public:
    FormatArgument(const char* text) : content_(std::string_view(text)) {}
    FormatArgument(std::string_view text) : content_(text) {}
    FormatArgument(const std::string& text) : content_(std::string_view(text)) {}
    template <std::integral Integer>
    FormatArgument(Integer number) : content_(makeInteger(number)) {}
    FormatArgument(double number) : content_(number) {}

    using Content = std::variant<std::string_view, std::int64_t, std::uint64_t, double>;
    [[nodiscard]] const Content& content() const { return content_; }

 private:
    template <std::integral Integer>
    static Content makeInteger(Integer number) {
        if constexpr (std::is_signed_v<Integer>) return std::int64_t{number};
        return static_cast<std::uint64_t>(number);
    }

    Content content_;
};

using FormatArguments = std::span<const FormatArgument>;

/// Fills a format as translators write it: %@ and %s (a text, or a number in full), %d %u %ld %lu
/// %lld %qd (a whole number), %.1f and %.0f (a number, with a point), %% and the positional forms
/// ("%2$@"). Arguments that are not used are fine. None for a directive that is unknown, lacks its
/// argument or does not fit it: no format can reach beyond the arguments.
[[nodiscard]] std::optional<std::string> FormatText(std::string_view format,
                                                    FormatArguments arguments);

}  // namespace quelm

#include "cli/SettingText.h"

#include <charconv>
#include <cmath>
#include <string>

#include "foundation/texts/Utf8.h"

namespace orv::cli {

namespace {

using Parsed = std::optional<quelm::Value>;

template <typename Number>
Parsed parse(const Setting<Number>&, std::string_view text) {
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    if constexpr (std::is_floating_point_v<Number>) {
        if (!std::isfinite(number)) return std::nullopt;
    }
    return isWhole ? Parsed(number) : std::nullopt;
}

Parsed parse(const BooleanSetting&, std::string_view text) {
    if (text != "true" && text != "false") return std::nullopt;
    return text == "true";
}

/// A text, and a list of texts in its written form.
template <typename Text>
Parsed parse(const Text&, std::string_view text) {
    return quelm::IsXmlText(text) ? Parsed(text) : std::nullopt;
}

Parsed parse(const ArraySetting&, std::string_view) {
    return std::nullopt;
}

Parsed parse(const DictionarySetting&, std::string_view) {
    return std::nullopt;
}

}  // namespace

Parsed ParseSetting(const AgentSetting& setting, std::string_view text) {
    return std::visit([text](const auto& row) { return parse(row, text); }, setting);
}

}  // namespace orv::cli

#include "widgets/HexColor.h"

#include <algorithm>
#include <cstdio>
#include <fmt/format.h>

namespace orv {

std::optional<HexColor> ParseHexColor(const std::string& text) {
    unsigned red = 0;
    unsigned green = 0;
    unsigned blue = 0;
    if (std::sscanf(text.c_str(), "#%02x%02x%02x", &red, &green, &blue) != 3) return std::nullopt;
    if (std::max({red, green, blue}) > 0xFF) return std::nullopt;  // from a sign
    return HexColor{static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                    static_cast<std::uint8_t>(blue)};
}

std::string HexColorText(const HexColor& color) {
    return fmt::format("#{:02x}{:02x}{:02x}", color.red, color.green, color.blue);
}

}  // namespace orv

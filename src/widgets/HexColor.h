#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orv {

/// An opaque colour.
struct HexColor {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const HexColor&) const = default;
};

/// Reads "#e51937", as sscanf reads "#%02x%02x%02x": what follows is ignored, and the last
/// component may be a single digit. None unless all three components are there.
[[nodiscard]] std::optional<HexColor> ParseHexColor(const std::string& text);

/// "#" and six lower-case digits.
[[nodiscard]] std::string HexColorText(const HexColor& color);

}  // namespace orv

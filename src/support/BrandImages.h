#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/Value.h"
#include "widgets/HexColor.h"

namespace orv {

/// A rectangle of one colour, in points.
struct FilledRectangle {
    int width = 0;
    int height = 0;
    HexColor color;
    bool operator==(const FilledRectangle&) const = default;
};

/// A picture that takes another's place. The window layer loads or paints it.
struct BrandImage {
    std::string name;
    /// An address is one that IsImageAddress takes.
    std::variant<std::string, FilledRectangle> content;
    bool operator==(const BrandImage&) const = default;
};

/// The image's name, or the tag number of the view that shows it.
using BrandImageKey = std::variant<std::string, int>;
using BrandImageTable = std::map<BrandImageKey, BrandImage>;

/// Whether pictures may be loaded from there: http and https with a host, and local files.
[[nodiscard]] bool IsImageAddress(std::string_view address);

/// The images of a branding file. Addresses that are not taken are logged and left out.
[[nodiscard]] BrandImageTable BrandImages(const quelm::Dictionary& info,
                                          const std::optional<HexColor>& headerBackground);

}  // namespace orv

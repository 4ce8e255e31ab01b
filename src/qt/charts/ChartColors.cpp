#include "qt/charts/ChartColors.h"

#include <array>

namespace orv {

namespace {

struct ColorRow {
    QRgb light;
    QRgb dark;
};

// in the order of the roles; told apart by lightness too
constexpr auto colors = std::to_array<ColorRow>({
    {0xFF127487, 0xFF35A0B2},
    {0xFF6A5FA8, 0xFFA69BE0},
    {0xFFD9962B, 0xFFE9B45C},
    {0xFFD5DDDE, 0xFF3C484B},
    {0xFFC8323F, 0xFFE86A74},
    {0x00000000, 0x00000000},
});

}  // namespace

QColor ChartColor(StorageRole role, const QPalette& palette) {
    constexpr float middle = 0.5F;
    const ColorRow& row = colors[static_cast<std::size_t>(role)];
    const bool isDark = palette.color(QPalette::Window).lightnessF() < middle;
    return QColor::fromRgba(isDark ? row.dark : row.light);
}

}  // namespace orv

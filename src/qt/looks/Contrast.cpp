#include "qt/looks/Contrast.h"

#include <algorithm>
#include <cmath>

namespace orv {

namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    const QColor rgb = color.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) +
           0.0722 * linear(rgb.blueF());
}

}  // namespace

double ContrastRatio(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor ReadableColor(const QColor& color, const QColor& background) {
    constexpr int steps = 50;
    const bool lighten =
        ContrastRatio(Qt::white, background) > ContrastRatio(Qt::black, background);
    const float end = lighten ? 1.0F : 0.0F;
    const QColor from = color.toHsl();
    QColor readable = color;
    for (int step = 1; step <= steps && ContrastRatio(readable, background) < leastContrast;
         ++step) {
        const float share = static_cast<float>(step) / steps;
        const float lightness = from.lightnessF() + (end - from.lightnessF()) * share;
        readable = QColor::fromHslF(std::max(from.hslHueF(), 0.0F), from.hslSaturationF(),
                                    std::clamp(lightness, 0.0F, 1.0F));
    }
    return readable;
}

}  // namespace orv

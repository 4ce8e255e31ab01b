#pragma once

#include <QColor>

namespace orv {

/// Of text, so that people with weak sight can read it.
inline constexpr double leastContrast = 4.5;

/// How much two opaque colours differ in lightness, from 1 (not at all) to 21 (black and white).
[[nodiscard]] double ContrastRatio(const QColor& one, const QColor& other);

/// The colour itself if text in it can be read on the background, else the same hue lightened or
/// darkened as little as is needed.
[[nodiscard]] QColor ReadableColor(const QColor& color, const QColor& background);

}  // namespace orv

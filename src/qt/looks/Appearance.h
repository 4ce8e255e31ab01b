#pragma once

class QPalette;

namespace orv {

enum class Appearance { Light, Dark };

/// What TIDEWELL_THEME in the environment asks for ("light" or "dark"), else what the desktop's own
/// palette is.
[[nodiscard]] Appearance PreferredAppearance(const QPalette& desktop);

}  // namespace orv

#pragma once

#include <QPalette>

#include "qt/looks/Appearance.h"

class QApplication;

namespace orv {

[[nodiscard]] QPalette ThemePalette(Appearance appearance);

/// Gives the application this program's own style and colours, before its first window is made.
void ApplyTheme(QApplication& application, Appearance appearance);

}  // namespace orv

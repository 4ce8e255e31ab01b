#pragma once

#include <QPointF>

class QWidget;

namespace orv {

/// How far from its place, in parts of its width, a window is when this part (0 to 1) of the time
/// has passed: four times left and right, and back.
[[nodiscard]] double ShakeOffset(double passed);

/// Moves the window left and right for a moment to refuse what was entered in it. Where windows
/// cannot be moved, or the desktop asks for no animations, it has a red border instead.
void ShakeWindow(QWidget& window);

}  // namespace orv

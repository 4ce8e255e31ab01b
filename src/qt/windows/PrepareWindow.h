#pragma once

class QWidget;

namespace orv {

struct WindowContext;

/// Gives a window that has just been made from its interface file icons and the brand. What is
/// bound to it comes later.
void PrepareWindow(QWidget& window, const WindowContext& context);

}  // namespace orv

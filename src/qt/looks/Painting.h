#pragma once

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;

// How the style draws its elements. Each takes the option as the style gets it; one of another kind
// than it expects draws nothing.

namespace orv::painting {

/// Whether it is the button that Enter presses, which stands out.
[[nodiscard]] bool IsAccented(const QStyleOption& option);

void button(const QStyleOption& option, QPainter& painter);
/// Only while the pointer is on it.
void flatButton(const QStyleOption& option, QPainter& painter);
void checkIndicator(const QStyleOption& option, QPainter& painter);
void comboBox(const QStyleOptionComboBox& option, QPainter& painter);
void field(const QStyleOption& option, QPainter& painter);
void frame(const QStyleOption& option, QPainter& painter);
void focus(const QStyleOption& option, QPainter& painter);
void tab(const QStyleOption& option, QPainter& painter);
void tabBase(const QStyleOption& option, QPainter& painter);
void header(const QStyleOption& option, QPainter& painter);
void nothing(const QStyleOption& option, QPainter& painter);

}  // namespace orv::painting

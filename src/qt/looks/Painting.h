#pragma once

#include <QStyle>

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionSlider;

// How the style draws its elements. Each takes the option as the style gets it; one of another kind
// than it expects draws nothing.

namespace orv::painting {

/// Of the part of a pop-up button that holds its arrow.
inline constexpr int chevronWidth = 28;

/// Whether it is the button that Enter presses, which stands out.
[[nodiscard]] bool IsAccented(const QStyleOption& option);

void button(const QStyleOption& option, QPainter& painter);
/// Only while the pointer is on it.
void flatButton(const QStyleOption& option, QPainter& painter);
/// A dash where it is partly on; also that of a row, on whose selection it stands out.
void checkIndicator(const QStyleOption& option, QPainter& painter);
void radioIndicator(const QStyleOption& option, QPainter& painter);
void comboBox(const QStyleOptionComboBox& option, QPainter& painter);
void field(const QStyleOption& option, QPainter& painter);
void frame(const QStyleOption& option, QPainter& painter);
/// Only once the person uses the keyboard to get about.
void focus(const QStyleOption& option, QPainter& painter);
void scrollBar(const QStyleOptionSlider& option, QPainter& painter);
/// Opens and closes a row of a tree.
void branch(const QStyleOption& option, QPainter& painter);
/// Where a part of a scroll bar without arrows is.
[[nodiscard]] QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part);
void tab(const QStyleOption& option, QPainter& painter);
void tabBase(const QStyleOption& option, QPainter& painter);
void header(const QStyleOption& option, QPainter& painter);
void nothing(const QStyleOption& option, QPainter& painter);

}  // namespace orv::painting

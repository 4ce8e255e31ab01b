#include "qt/elements/HeaderBand.h"

#include <QPaintEvent>
#include <QPainter>
#include <array>

#include "qt/looks/Contrast.h"

namespace orv {

HeaderBand::HeaderBand(QWidget* parent) : QWidget(parent) {
    setBackgroundRole(QPalette::Base);
}

void HeaderBand::setColor(const QColor& color) {
    constexpr auto texts = std::to_array<QPalette::ColorRole>(
        {QPalette::WindowText, QPalette::Text, QPalette::PlaceholderText, QPalette::Link});
    QPalette own = palette();
    own.setColor(QPalette::Base, color);
    own.setColor(QPalette::Window, color);
    for (const QPalette::ColorRole role : texts)
        own.setColor(role, ReadableColor(own.color(role), color));
    setPalette(own);
}

void HeaderBand::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Base));
}

}  // namespace orv

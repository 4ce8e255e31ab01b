#include "qt/elements/BusyIndicator.h"

#include <QPainter>
#include <QStyle>
#include <QTimerEvent>
#include <algorithm>

namespace orv {

namespace {

constexpr int side = 20;
constexpr int frameMilliseconds = 16;
constexpr int turnMilliseconds = 900;
// as QPainter counts angles
constexpr int degree = 16;
constexpr int arc = 100 * degree;

}  // namespace

QSize BusyIndicator::sizeHint() const {
    return {side, side};
}

void BusyIndicator::setAnimating(bool animating) {
    if (animating == isAnimating()) return;
    if (animating) {
        since_.start();
    } else {
        since_.invalidate();
    }
    turn();
    update();
}

void BusyIndicator::turn() {
    const bool turns = isAnimating() && isVisible() &&
                       style()->styleHint(QStyle::SH_Widget_Animate, nullptr, this) != 0;
    if (!turns) {
        timer_.stop();
    } else if (!timer_.isActive()) {
        timer_.start(frameMilliseconds, this);
    }
}

void BusyIndicator::timerEvent(QTimerEvent* event) {
    if (event->timerId() == timer_.timerId()) update();
}

void BusyIndicator::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    turn();
}

void BusyIndicator::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    turn();
}

void BusyIndicator::paintEvent(QPaintEvent* /*event*/) {
    if (!isAnimating()) return;
    const qreal pen = 2.5;
    const qreal size = std::min(width(), height()) - pen;
    QRectF circle(0, 0, size, size);
    circle.moveCenter(QRectF(rect()).center());

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Mid), pen));
    painter.drawEllipse(circle);
    painter.setPen(QPen(palette().color(QPalette::Highlight), pen, Qt::SolidLine, Qt::RoundCap));
    const auto passed = timer_.isActive() ? since_.elapsed() % turnMilliseconds : 0;
    const auto start = static_cast<int>(passed * 360 * degree / turnMilliseconds);
    painter.drawArc(circle, 90 * degree - start, -arc);
}

}  // namespace orv

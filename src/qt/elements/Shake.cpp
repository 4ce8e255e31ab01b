#include "qt/elements/Shake.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QPainter>
#include <QStyle>
#include <QTimer>
#include <QVariantAnimation>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "qt/elements/MakeChild.h"
#include "qt/looks/StatusColors.h"

namespace orv {

namespace {

constexpr int shakeMilliseconds = 600;
constexpr double reach = 0.06;
constexpr int swings = 4;

/// A red border around what its parent shows.
class RefusalFrame final : public QWidget {
 public:
    explicit RefusalFrame(QWidget* window) : QWidget(window) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(window->rect());
        show();
        raise();
        QTimer::singleShot(shakeMilliseconds, this, &QObject::deleteLater);
    }

 protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        constexpr qreal pen = 3;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(StatusColor(Status::Refused, palette()), pen));
        painter.drawRect(QRectF(rect()).adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2));
    }
};

bool canMove(const QWidget& window) {
    return window.style()->styleHint(QStyle::SH_Widget_Animate, nullptr, &window) != 0 &&
           !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

/// One shake at a time, so that the place to go back to is the window's own.
constexpr const char* animationName = "shake";

void moveToAndFro(QWidget& window) {
    if (window.findChild<QVariantAnimation*>(animationName, Qt::FindDirectChildrenOnly)) return;
    auto* animation = MakeChild<QVariantAnimation>(&window);
    animation->setObjectName(animationName);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    animation->setDuration(shakeMilliseconds);
    const QPoint place = window.pos();
    QObject::connect(animation, &QVariantAnimation::valueChanged, &window,
                     [&window, place](const QVariant& passed) {
                         const double offset = ShakeOffset(passed.toDouble()) * window.width();
                         window.move(place + QPoint(static_cast<int>(std::lround(offset)), 0));
                     });
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

}  // namespace

double ShakeOffset(double passed) {
    // legs of the way: to the left once, then across, at last back from the right
    constexpr int legs = 2 * swings + 1;
    const double way = std::clamp(passed, 0.0, 1.0) * legs;
    const int leg = std::min(static_cast<int>(way), legs - 1);
    const auto stop = [](int n) {
        if (n == 0 || n == legs) return 0.0;
        return n % 2 == 1 ? -reach : reach;
    };
    return stop(leg) + (stop(leg + 1) - stop(leg)) * (way - leg);
}

void ShakeWindow(QWidget& window) {
    QAccessibleEvent alert(&window, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    if (canMove(window)) {
        moveToAndFro(window);
    } else {
        MakeChild<RefusalFrame>(&window);
    }
}

}  // namespace orv

#include "qt/elements/Section.h"

#include <QChildEvent>
#include <algorithm>

#include "qt/elements/TextLabel.h"

namespace orv {

void Section::childEvent(QChildEvent* event) {
    QWidget::childEvent(event);
    if (event->added()) event->child()->installEventFilter(this);
}

bool Section::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::ShowToParent || type == QEvent::HideToParent) setHidden(!hasContent());
    return QWidget::eventFilter(watched, event);
}

bool Section::hasContent() const {
    return std::ranges::any_of(children(), [](const QObject* child) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        const auto* label = qobject_cast<const TextLabel*>(child);
        const bool isHeading = label && label->tone() == QLatin1String("section");
        return widget && !isHeading && !widget->isHidden();
    });
}

}  // namespace orv

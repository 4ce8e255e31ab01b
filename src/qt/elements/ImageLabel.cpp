#include "qt/elements/ImageLabel.h"

#include <QEvent>

namespace orv {

void ImageLabel::setImage(const QString& name, const QIcon& icon) {
    name_ = name;
    icon_ = icon;
    render();
}

bool ImageLabel::event(QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::ScreenChangeInternal || type == QEvent::EnabledChange) render();
    return QLabel::event(event);
}

void ImageLabel::render() {
    const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
    setPixmap(icon_.pixmap(minimumSize(), devicePixelRatio(), mode));
}

}  // namespace orv

#include "qt/desktop/Screenshots.h"

#include <QCoreApplication>
#include <QPixmap>
#include <QTabWidget>
#include <QVariant>

namespace orv {

namespace {

void take(QWidget& window, const QString& path, QStringList& taken) {
    QCoreApplication::processEvents();
    if (window.grab().save(path)) taken << path;
}

}  // namespace

QStringList TakeScreenshots(QWidget& window, const QString& folder, const QString& name) {
    QStringList taken;
    auto* tabs = window.findChild<QTabWidget*>();
    if (!tabs) {
        take(window, QStringLiteral("%1/%2.png").arg(folder, name), taken);
        return taken;
    }
    const int before = tabs->currentIndex();
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        const QString tab = tabs->widget(i)->property("identifier").toString();
        take(window, QStringLiteral("%1/%2-%3.png").arg(folder, name, tab), taken);
    }
    tabs->setCurrentIndex(before);
    return taken;
}

}  // namespace orv

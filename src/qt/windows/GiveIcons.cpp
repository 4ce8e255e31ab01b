#include "qt/windows/GiveIcons.h"

#include <QAbstractButton>
#include <QTabWidget>
#include <QVariant>

#include "qt/elements/ImageLabel.h"
#include "qt/elements/NoticeStrip.h"
#include "qt/looks/Icons.h"

namespace orv {

namespace {

QIcon iconOf(const QWidget& widget, const Icons& icons) {
    const QString name = widget.property("iconName").toString();
    return name.isEmpty() ? QIcon() : icons.icon(name);
}

}  // namespace

void GiveIcons(QWidget& window, const Icons& icons) {
    for (ImageLabel* label : window.findChildren<ImageLabel*>()) {
        const QString name = label->imageName();
        if (!name.isEmpty()) label->setImage(name, icons.icon(name));
    }
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
        button->setIcon(iconOf(*button, icons));
    for (QTabWidget* tabs : window.findChildren<QTabWidget*>())
        for (int i = 0; i < tabs->count(); ++i)
            tabs->setTabIcon(i, iconOf(*tabs->widget(i), icons));
    for (NoticeStrip* strip : window.findChildren<NoticeStrip*>())
        strip->setIcons(icons);
}

}  // namespace orv

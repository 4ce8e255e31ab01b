#include "qt/elements/ScrollColumn.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>

namespace orv {

ScrollColumn::ScrollColumn(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    setFocusPolicy(Qt::NoFocus);
    // as the window behind it
    viewport()->setAutoFillBackground(false);
}

/// The scroll bar's place stays free, so that nothing moves when it comes.
int ScrollColumn::columnWidth() const {
    const int bar = verticalScrollBar()->sizeHint().width();
    return (widget() ? widget()->minimumSizeHint().width() : 0) + bar;
}

QSize ScrollColumn::sizeHint() const {
    return {columnWidth(), widget() ? widget()->sizeHint().height() : 0};
}

QSize ScrollColumn::minimumSizeHint() const {
    return {columnWidth(), 0};
}

/// What stands in the column is laid out before the window asks how wide it is: no layout reaches
/// through a scroll area.
void ScrollColumn::layOutContents() {
    if (!widget()) return;
    const QList<QWidget*> inner = widget()->findChildren<QWidget*>();
    for (auto each = inner.rbegin(); each != inner.rend(); ++each)
        if (QLayout* layout = (*each)->layout()) layout->activate();
    if (QLayout* layout = widget()->layout()) layout->activate();
}

bool ScrollColumn::event(QEvent* event) {
    const bool done = QScrollArea::event(event);
    if (event->type() == QEvent::Polish) layOutContents();
    return done;
}

bool ScrollColumn::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace orv

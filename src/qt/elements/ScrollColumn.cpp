#include "qt/elements/ScrollColumn.h"

#include <QEvent>
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

bool ScrollColumn::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace orv

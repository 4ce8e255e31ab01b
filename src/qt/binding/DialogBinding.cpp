#include "qt/binding/DialogBinding.h"

#include <QKeyEvent>

#include "qt/elements/Shake.h"

namespace orv {

bool DialogBinding::Closing::eventFilter(QObject*, QEvent* event) {
    const bool isEscape = event->type() == QEvent::KeyPress &&
                          static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel);
    if (event->type() != QEvent::Close && !isEscape) return false;
    event->ignore();
    outlet_->performClose();
    return true;
}

DialogBinding::DialogBinding(FrameUpdates& updates, DialogWindow& outlet, QDialog& dialog)
    : OutletBinding(updates, outlet, dialog), closing_(outlet), shakes_(outlet.shakes()) {
    dialog.installEventFilter(&closing_);
}

void DialogBinding::apply() {
    QDialog& dialog = widget();
    dialog.setVisible(outlet().isOpen());
    if (raises_ != outlet().raises() && outlet().isOpen()) {
        dialog.raise();
        dialog.activateWindow();
    }
    raises_ = outlet().raises();
    if (shakes_ != outlet().shakes() && outlet().isOpen()) ShakeWindow(dialog);
    shakes_ = outlet().shakes();
}

}  // namespace orv

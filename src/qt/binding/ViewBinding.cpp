#include "qt/binding/ViewBinding.h"

#include "qt/binding/ShownText.h"

namespace orv {

void ApplyView(const View& outlet, QWidget& widget, QWidget* label) {
    for (QWidget* each : {&widget, label}) {
        if (!each) continue;
        // asked of the widget itself: a page that is not shown hides what is on it
        if (each->isHidden() != outlet.isHidden()) each->setHidden(outlet.isHidden());
    }
    widget.setEnabled(outlet.isEnabled());
    if (!outlet.toolTip().empty() || !widget.toolTip().isEmpty()) {
        widget.setToolTip(PlainToolTip(ShownText(outlet.toolTip())));
    }
}

}  // namespace orv

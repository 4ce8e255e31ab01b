#pragma once

#include "support/InterfaceElement.h"

class QWidget;

namespace orv {

/// Shows the widget, and through it all that belongs to it, to the visitor as branding sees it. Its
/// dynamic property "tag" is its tag.
void VisitElement(QWidget& widget, const InterfaceElement::Visitor& visitor);

}  // namespace orv

#pragma once

#include <QColor>
#include <QString>

#include "widgets/LinkedText.h"

namespace orv {

/// The colours that links are drawn in and on.
struct LinkColors {
    /// Of links that name none.
    QColor link;
    QColor background;
};

/// The text as markup for a label: its links as such, everything else as it is, blanks and line
/// ends too. A link that overlaps an earlier one, or lies outside the text, is plain text. Colours
/// that could not be read on the background are made readable.
[[nodiscard]] QString LinkedTextHtml(const LinkedText& text, const LinkColors& colors);

}  // namespace orv

#pragma once

#include <QString>
#include <string_view>

namespace orv {

/// At most so many characters of any text are laid out; what is longer ends in an ellipsis.
inline constexpr qsizetype mostShownCharacters = 2000;

/// A text from anywhere, fit to be laid out.
[[nodiscard]] QString ShownText(std::string_view text);

/// The same in one line, for a cell or a title.
[[nodiscard]] QString ShownLine(std::string_view text);

/// A tool tip that shows the text as it is, also where it looks like markup.
[[nodiscard]] QString PlainToolTip(const QString& text);

}  // namespace orv

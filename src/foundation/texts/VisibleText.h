#pragma once

#include <string>
#include <string_view>

namespace quelm {

/// The text as one line for a terminal or a log: the bytes of control characters, line ends
/// included, are shown as \xNN.
[[nodiscard]] std::string VisibleText(std::string_view text);

}  // namespace quelm

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "foundation/texts/FormatText.h"

namespace quelm {

/// A text that is looked up later: tables hold these.
struct LocalizedText {
    std::string_view key;
    std::string_view defaultText;
};

/// The text under `key` in the application bundle's "Localizable" table; the default without one.
[[nodiscard]] std::string GetLocalizedString(std::string_view key, std::string_view defaultText);

/// The same filled with the arguments. A translation whose directives do not fit them is logged
/// and the default text is filled instead; a default that does not fit either is shown unfilled.
[[nodiscard]] std::string FormatLocalizedString(std::string_view key, std::string_view defaultText,
                                                std::initializer_list<FormatArgument> arguments);

}  // namespace quelm

#pragma once

#include <map>
#include <string>

#include "support/StyledText.h"

namespace orv {

/// Variables ("$(VERSION)") and their values. They are replaced one after another in this order,
/// so that a value may hold variables that come later.
using TextVariables = std::map<std::string, std::string, std::less<>>;

// Every occurrence of every variable becomes its value; a value is not searched again for its own
// variable. A variable that would make the text longer than 1 MiB stays as it is.

[[nodiscard]] std::string ReplaceVariables(std::string text, const TextVariables& variables);

/// A value takes the style in which its variable begins; styles around it stay where they were.
void ReplaceVariables(StyledText& text, const TextVariables& variables);

}  // namespace orv

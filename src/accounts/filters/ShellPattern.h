#pragma once

#include <string_view>

namespace orv {

/// Whether a shell pattern matches all of the name, without regard to the case of ASCII letters:
/// "*", "?", "[a-z]", "[!a]", "[^a]", "[[:digit:]]" and "\" before a literal character. "*" crosses
/// "/" and leading dots are not special. It is fnmatch with FNM_CASEFOLD in the C locale, whatever
/// the process's locale is. Time grows with the product of both lengths at most.
[[nodiscard]] bool MatchesShellPattern(std::string_view pattern, std::string_view name);

}  // namespace orv

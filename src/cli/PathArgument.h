#pragma once

#include <string>

namespace orv::cli {

// The paths that a person types, as they are stored: absolute and without links.

/// As far as the path is there; the rest as it stands.
[[nodiscard]] std::string PathOfFolder(const std::string& word);

/// The same for the folder that it is in: a link in the file's own place is not followed.
[[nodiscard]] std::string PathOfFile(const std::string& word);

}  // namespace orv::cli

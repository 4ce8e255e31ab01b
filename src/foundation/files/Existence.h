#pragma once

#include <string>

namespace quelm {

// False also where it cannot be told.

/// Whether the path leads to something; links are followed.
[[nodiscard]] bool Exists(const std::string& path);
/// Whether the name is taken, be it by a link that leads nowhere.
[[nodiscard]] bool IsNameTaken(const std::string& path);
/// Whether the path leads to a folder; links are followed.
[[nodiscard]] bool IsFolder(const std::string& path);

}  // namespace quelm

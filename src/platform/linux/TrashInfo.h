#pragma once

#include <ctime>
#include <string>
#include <string_view>

namespace platform {

/// What lies in a trash folder's "info" for one file (freedesktop.org trash 1.0):
/// where it was and when, in local time, it was thrown away.
[[nodiscard]] std::string TrashInfoText(std::string_view originalPath, const std::tm& deleted);

/// Every byte but letters, digits and "-._~/" as "%XX".
[[nodiscard]] std::string PercentEncodedPath(std::string_view path);

}  // namespace platform

#pragma once

#include <string>

namespace quelm::os {

/// The name's extension without its dot; for a name without one "doc", "ppt" or "xls" where the
/// content is such a document, else empty.
[[nodiscard]] std::string DetectFileType(const std::string& path);

}  // namespace quelm::os

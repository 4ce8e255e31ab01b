#pragma once

#include <iosfwd>
#include <string>

#include "pane/status/StatusOutlets.h"

namespace orv::cli {

/// One line of JSON: {"connection": {"text", "info", "button"}, "backup" and "projects":
/// {"summary", "state", "image"}, "links": [{"text", "address"}]}; an image that is none is null.
[[nodiscard]] std::string StatusAsJson(const StatusOutlets& shown);

/// The same for a person, a headline first.
[[nodiscard]] std::string StatusAsText(const StatusOutlets& shown);

}  // namespace orv::cli

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quelm {

/// The value of NAME in a file of lines NAME=VALUE as os-release(5) has them: quotes around it and
/// backslashes in it are taken off. Of several lines the last; none without one.
[[nodiscard]] std::optional<std::string> ReadAssignment(const std::string& path,
                                                        std::string_view name);

}  // namespace quelm

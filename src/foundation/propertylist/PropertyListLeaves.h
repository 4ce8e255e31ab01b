#pragma once

#include <optional>
#include <string_view>

#include "platform/Value.h"

namespace quelm {

// The texts of an XML property list's elements; white space around them is allowed. None for a
// text that is no such value.

[[nodiscard]] std::optional<Value> ParsePropertyInteger(std::string_view text);
[[nodiscard]] std::optional<Value> ParsePropertyReal(std::string_view text);
[[nodiscard]] std::optional<Value> ParsePropertyDate(std::string_view text);
[[nodiscard]] std::optional<Value> ParsePropertyData(std::string_view text);
[[nodiscard]] std::optional<Value> ParsePropertyTrue(std::string_view text);
[[nodiscard]] std::optional<Value> ParsePropertyFalse(std::string_view text);

}  // namespace quelm

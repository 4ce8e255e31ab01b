#pragma once

#include <iosfwd>
#include <string>

#include "platform/Value.h"

namespace orv::cli {

/// The value as indented lines for a person, each leaf with its type: "key: integer 12".
void PrintValue(std::ostream& out, const quelm::Value& value);

/// One line of JSON: data as {"data": base64}, a date as {"date": ISO 8601 in UTC}; not-a-number
/// and the infinities as null.
[[nodiscard]] std::string ValueAsJson(const quelm::Value& value);

}  // namespace orv::cli

#pragma once

#include <cstdint>
#include <string>

#include "platform/Value.h"

namespace orv {

// What an agent event holds under a key, where numbers travel as text. Any thread.

/// "" for a key that is missing or holds no text.
[[nodiscard]] std::string PayloadText(const quelm::Dictionary& payload, const char* key);

/// The number that the text begins with; 0 without one.
[[nodiscard]] std::int64_t PayloadNumber(const quelm::Dictionary& payload, const char* key);

}  // namespace orv

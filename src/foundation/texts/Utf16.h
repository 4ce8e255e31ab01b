#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quelm {

enum class ByteOrder { BigEndian, LittleEndian };

/// Converts UTF-16; none for a lone surrogate and for half a unit at the end.
[[nodiscard]] std::optional<std::string> Utf8FromUtf16(std::string_view units, ByteOrder order);

}  // namespace quelm

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/files/WholeFile.h"
#include "platform/Value.h"

namespace quelm {

/// What a reader takes at most; larger input counts as unparsable. The largest settings file in
/// use stays far below.
struct PropertyListLimits {
    std::size_t bytes = std::size_t{64} << 20U;
    std::size_t depth = 512;
    std::size_t objects = 4'000'000;
};

struct PropertyListResult {
    std::optional<Value> value;
    /// Why there is no value, for a person; empty when there is one.
    std::string error;
};

/// Reads an XML or a binary property list. Whatever the bytes are, it neither recurses nor uses
/// memory or time beyond the limits. Strings come as UTF-8; integers beyond 64 signed bits, invalid
/// dates and characters that XML forbids make the list unparsable.
[[nodiscard]] PropertyListResult ReadPropertyList(std::string_view bytes,
                                                  const PropertyListLimits& limits = {});

/// Reads a file without changing or making it.
[[nodiscard]] PropertyListResult ReadPropertyListFile(const std::string& path,
                                                      FileLock lock = FileLock::Shared);

/// The value as an XML property list in UTF-8 with sorted keys; the same value always gives the
/// same bytes. None for what no reader would take back: strings that are not UTF-8 or hold control
/// characters, dates outside the years 1 to 9999, nesting beyond `PropertyListLimits::depth`.
[[nodiscard]] std::optional<std::string> WritePropertyList(const Value& value);

}  // namespace quelm

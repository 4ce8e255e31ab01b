#pragma once

#include <string>
#include <string_view>

#include "foundation/propertylist/PropertyList.h"

namespace quelm {

// The two forms that `ReadPropertyList` tells apart by the first bytes. The caller has checked
// the size.

[[nodiscard]] PropertyListResult ReadXmlPropertyList(std::string_view bytes,
                                                     const PropertyListLimits& limits);

[[nodiscard]] PropertyListResult ReadBinaryPropertyList(std::string_view bytes,
                                                        const PropertyListLimits& limits);

/// What a binary property list begins with.
inline constexpr std::string_view binaryPropertyListMagic = "bplist0";

}  // namespace quelm

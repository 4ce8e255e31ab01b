#pragma once

#include <string>
#include <string_view>

namespace quelm {

/// Appends the character that "&reference;" stands for: one of the five names of XML 1.0 or
/// "#38", "#x26". False for any other, which includes entities that a document declares, and for
/// characters that XML forbids.
[[nodiscard]] bool AppendXmlReference(std::string_view reference, std::string& out);

}  // namespace quelm

#pragma once

#include <optional>
#include <string>

namespace orv {

/// The bytes of an XML file of the agent; none for one that is missing, and for one that cannot be
/// read, which is logged.
[[nodiscard]] std::optional<std::string> ReadAccountXml(const std::string& path);

}  // namespace orv

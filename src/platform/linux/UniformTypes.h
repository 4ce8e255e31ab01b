#pragma once

#include <string>

namespace platform {

/// The uniform type of an office document's MIME type; any other stays as it is.
[[nodiscard]] std::string UniformType(const std::string& mimeType);

}  // namespace platform

#pragma once

#include <cstdint>
#include <string>

namespace orv {

/// A size for the person, by powers of 1024 with one decimal: "17 B", "1.5 KB", "2.0 MB", "3.1 GB";
/// "---" for a negative one. Localised, unlike quelm::FileSizeString.
[[nodiscard]] std::string FileSizeString(std::int64_t bytes);

/// The same of a sum, which may be larger than any file.
[[nodiscard]] std::string FileSizeText(std::uint64_t bytes);

}  // namespace orv

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "foundation/files/StatusCode.h"

namespace quelm {

/// The name's extension without its dot. It begins at the last ".", which has to be found before
/// any white space (from the end) and is neither the first nor the last character; names of fewer
/// than three characters have none.
[[nodiscard]] std::string_view GetFilenameExtension(std::string_view name);

/// Whether the name names something in a folder and nothing outside it: not empty, ".", ".." and
/// without "/" and NUL.
[[nodiscard]] bool IsPlainFilename(std::string_view name);

/// A unique path below /var/tmp; no file is made. Empty when none can be found.
[[nodiscard]] std::string CreateTempFilename();

}  // namespace quelm

namespace quelm::os {

/// The name in decomposed form (Unicode NFD); what is not UTF-8 stays as it is.
[[nodiscard]] std::string FilenameConvert(const std::string& name);

/// The decomposed name with "_" for a leading "." and for every "/" and NUL.
[[nodiscard]] std::string ValidFilename(const std::string& name);

/// Makes a new, empty file (mode 0600) in the folder whose name is `length` random characters and
/// the suffix, and answers that name; empty after 100 failed attempts. The file is the caller's.
[[nodiscard]] std::string GenerateFilename(const std::string& folder, std::size_t length,
                                           const std::string& suffix);

}  // namespace quelm::os

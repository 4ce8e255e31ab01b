#pragma once

#include <string_view>

namespace quelm {

/// Whether the path is the prefix or lies below it, byte for byte; everything absolute lies below
/// "/".
[[nodiscard]] bool StartsWithPath(std::string_view path, std::string_view prefix);

/// Whether the path is a direct child of the folder, which is given with its "/" at the end.
[[nodiscard]] bool IsInFolder(std::string_view path, std::string_view folder);

}  // namespace quelm

namespace orv {

/// As quelm::StartsWithPath, but without regard to case, for volumes that have none. Case is that
/// of Unicode, character by character; bytes that are not UTF-8 equal only themselves.
[[nodiscard]] bool StartsWithPath(std::string_view path, std::string_view prefix);

/// Whether both are the same path without regard to case, as above.
[[nodiscard]] bool IsSamePath(std::string_view left, std::string_view right);

}  // namespace orv

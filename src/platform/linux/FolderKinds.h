#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// ItemFlag bits of a folder by its name's extension and first character.
[[nodiscard]] std::uint32_t FlagsOfFolderName(std::string_view name);

/// The lines of the folder's file ".hidden", as file managers read it; at most 64 KiB of them.
[[nodiscard]] std::vector<std::string> ReadHiddenNames(const std::string& folder);

}  // namespace platform

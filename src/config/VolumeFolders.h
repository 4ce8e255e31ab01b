#pragma once

#include <string_view>

namespace orv {

/// The part of an absolute path that is a folder of mounted volumes (locations::volumeFolders):
/// "/media/anna" of "/media/anna/Disk/x" and of itself; empty for any other path.
[[nodiscard]] std::string_view FolderOfVolumes(std::string_view path);

}  // namespace orv

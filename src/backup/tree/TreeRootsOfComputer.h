#pragma once

#include <string>

#include "backup/tree/FileSystemTree.h"
#include "platform/Volumes.h"

namespace orv {

/// The whole computer, the volumes that are mounted in the folders of volumes, and of the person
/// the folders "Desktop", `home` itself and "Documents" as far as they are there, by their true
/// paths. Asks the disk.
[[nodiscard]] TreeRoots RootsOfComputer(platform::Volumes& volumes, const std::string& home);

}  // namespace orv

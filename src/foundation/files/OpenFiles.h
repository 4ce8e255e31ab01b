#pragma once

#include <set>
#include <string>

namespace quelm::os {

/// Adds the files below `folder` that some process has open, relative to it, as "lsof" tells them.
/// Nothing for a folder that is not there or whose name holds a single quote, which cannot be
/// quoted in the command. Blocks while the command runs.
void ListOpenFiles(const std::string& folder, std::set<std::string>& paths);

}  // namespace quelm::os

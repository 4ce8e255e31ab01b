#pragma once

#include <string>

#include "foundation/files/StatusCode.h"

namespace quelm::os {

/// Gives a folder without an extended access list that of its parent, without the entries that
/// deny the group "everyone" something.
EStatusCode CopyFolderAcl(const std::string& path);

/// The same for a file: all entries, less the rights to read, write, execute, append and delete
/// children.
EStatusCode CopyFileAcl(const std::string& path);

}  // namespace quelm::os

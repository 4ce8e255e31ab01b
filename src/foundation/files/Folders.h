#pragma once

#include <set>
#include <string>

#include "foundation/files/StatusCode.h"

namespace quelm::os {

/// Makes one folder with permissions 0700.
EStatusCode CreateRootFolder(const std::string& path);

/// Makes one folder with permissions 0755 and the parent's access list.
EStatusCode CreateFolder(const std::string& path);

/// Makes the folder and the parents that it lacks; what was made stays when a later step fails.
/// A folder directly under the root is refused with INVALID_PATH.
EStatusCode RecursiveCreateFolder(const std::string& path);

/// Adds the names in the folder, without "." and "..", that `pattern` (PCRE, default options)
/// matches anywhere; an empty pattern takes all. FAILURE for a pattern that does not compile.
EStatusCode ListFolderEntries(std::set<std::string>& names, const std::string& folder,
                              const std::string& pattern = {});

}  // namespace quelm::os

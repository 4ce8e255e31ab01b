#pragma once

#include <string>

#include "foundation/files/StatusCode.h"

namespace quelm::os {

/// The first 16 bytes of the file's "com.apple.FinderInfo" attribute; emptied on failure.
EStatusCode LoadMetainfo(const std::string& path, std::string& metainfo);

/// Gives `to` the "com.apple.FinderInfo" of `from`, or removes it where `from` has none.
EStatusCode CopyMetainfo(const std::string& from, const std::string& to);

}  // namespace quelm::os

#pragma once

#include <string>
#include <vector>

namespace orv {

// What the server excludes from every backup: the XML file "storage_exceptions.xml", which the
// agent writes. Without a file there is nothing, and nothing is said; a file that is no such
// document is logged and gives nothing. Any thread.

/// Regular expressions for paths of folders; at most 1,000.
[[nodiscard]] std::vector<std::string> ReadExcludedFolders(const std::string& path);

/// Patterns for file names; at most 10,000.
[[nodiscard]] std::vector<std::string> ReadExcludedFileTypes(const std::string& path);

}  // namespace orv

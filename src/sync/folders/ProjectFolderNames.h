#pragma once

#include <string>

namespace quelm::sync {

// Hidden folders at the top of a sync root.
/// Holds the project list files.
inline const std::string FILE_CACHE_FOLDER_NAME = ".FileCache";
inline const std::string IMPORT_FOLDER_NAME = ".Import";
inline const std::string TRASH_FOLDER_NAME = ".Trash";

/// Begins the name of a project list file; the id of its user follows.
inline const std::string projectListPrefix = "project_list_";

// What stands for an owner that a folder does not have.
/// It has content.
inline const std::string PROJECT_FOLDER_NOT_EMPTY = "<not-empty>";
/// Its cache folder holds no project list file.
inline const std::string PROJECT_FOLDER_NO_ID = "<no-ID>";
/// It lies in another sync root.
inline const std::string PROJECT_FOLDER_RECURSION = "<recursion>";
/// It is free.
inline const std::string EmptyString;

}  // namespace quelm::sync

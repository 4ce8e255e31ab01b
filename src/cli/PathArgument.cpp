#include "cli/PathArgument.h"

#include <filesystem>

#include "foundation/paths/Paths.h"

namespace orv::cli {

namespace fs = std::filesystem;

std::string PathOfFolder(const std::string& word) {
    std::error_code error;
    const fs::path absolute = fs::absolute(word, error);
    if (error) return word;
    const fs::path canonical = fs::weakly_canonical(absolute, error);
    const std::string& path = (error ? absolute : canonical).native();
    return std::string(quelm::RemoveLastSlashFromPath(path));
}

std::string PathOfFile(const std::string& word) {
    const fs::path path = word;
    if (!path.has_filename()) return PathOfFolder(word);
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    return (fs::path(PathOfFolder(folder.string())) / path.filename()).string();
}

}  // namespace orv::cli

#include "backup/sharing/ExcludedFiles.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <sys/stat.h>

#include "backup/tree/ChildNames.h"
#include "config/Locations.h"
#include "config/PropertyFiles.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/Log.h"
#include "foundation/texts/Utf8.h"

namespace orv {

namespace {

bool isAbsentOrEmpty(const std::string& file) {
    struct stat info = {};
    return stat(file.c_str(), &info) == 0 ? info.st_size == 0 : errno == ENOENT;
}

bool isStorableFile(std::string_view path) {
    return path.starts_with('/') && path.size() < PATH_MAX && quelm::IsXmlText(path);
}

std::vector<std::string> textsOf(const quelm::Array& list) {
    std::vector<std::string> texts;
    for (const quelm::Value& value : list) {
        if (const auto* text = value.asString()) texts.push_back(*text);
    }
    return texts;
}

}  // namespace

ExcludedFiles::ExcludedFiles(const std::string& folder)
    : file_(folder + "/" + files::excludedFiles) {}

bool ExcludedFiles::loadExcludedFiles() {
    std::vector<std::string> paths;
    if (!isAbsentOrEmpty(file_)) {
        const auto [value, error] = quelm::ReadPropertyListFile(file_);
        const auto* const list = value ? value->asArray() : nullptr;
        if (!list) {
            quelm::LogError(file_ + " cannot be read: " + (value ? "it holds no list" : error) +
                            ". It stays as it is; move it away to begin anew.");
            return false;
        }
        paths = textsOf(*list);
    }
    excludedFilesArray = std::move(paths);
    isLoaded_ = true;
    excludedFilesModified = false;
    return true;
}

bool ExcludedFiles::saveExcludedFiles() {
    if (!excludedFilesModified) return true;
    if (!isLoaded_ && !isAbsentOrEmpty(file_)) {
        quelm::LogError(file_ + " was not read, so the list in it stays as it is.");
        return false;
    }
    const quelm::Array list(excludedFilesArray.begin(), excludedFilesArray.end());
    // storing tells a full disk only in the log
    const bool isStored =
        StoreArrayToFile(file_, list) && quelm::ReadPropertyListFile(file_).value == list;
    if (!isStored) {
        quelm::LogError(file_ + " does not hold the changed list of excluded files.");
        return false;
    }
    isLoaded_ = true;
    excludedFilesModified = false;
    return true;
}

bool ExcludedFiles::contains(std::string_view path) const {
    return std::ranges::any_of(excludedFilesArray, [path](const std::string& present) {
        return CompareWithoutCase(present, path) == 0;
    });
}

bool ExcludedFiles::add(std::string_view path) {
    if (!isStorableFile(path) || contains(path)) return false;
    const auto place = std::ranges::find_if(excludedFilesArray, [path](const std::string& present) {
        return CompareWithoutCase(present, path) > 0;
    });
    excludedFilesArray.insert(place, std::string(path));
    excludedFilesModified = true;
    return true;
}

bool ExcludedFiles::remove(std::string_view path) {
    const auto found = std::ranges::find(excludedFilesArray, path);
    if (found == excludedFilesArray.end()) return false;
    excludedFilesArray.erase(found);
    excludedFilesModified = true;
    return true;
}

}  // namespace orv

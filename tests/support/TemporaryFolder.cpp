#include "support/TemporaryFolder.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <system_error>

namespace test_support {

namespace fs = std::filesystem;

namespace {

/// A folder that a test has locked is opened again, so that its owner can empty it.
void unlockFolders(const fs::path& folder) {
    std::error_code ignored;
    fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ignored);
    for (fs::directory_iterator entry(folder, ignored), end; entry != end;
         entry.increment(ignored)) {
        if (entry->symlink_status(ignored).type() == fs::file_type::directory) {
            unlockFolders(entry->path());
        }
    }
}

}  // namespace

TemporaryFolder::TemporaryFolder()
    : path_(fs::canonical(fs::temp_directory_path()) / "tidewell-XXXXXX") {
    if (!::mkdtemp(path_.data())) {
        throw std::system_error(errno, std::generic_category(), "mkdtemp " + path_);
    }
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
    if (!error) return;
    unlockFolders(path_);
    fs::remove_all(path_, error);
}

std::string TemporaryFolder::operator/(std::string_view name) const {
    return std::string(path_).append("/").append(name);
}

std::string TemporaryFolder::makeFolder(std::string_view name) const {
    std::string folder = *this / name;
    fs::create_directories(folder);
    return folder;
}

std::string TemporaryFolder::makeFile(std::string_view name, std::string_view content) const {
    std::string file = *this / name;
    fs::create_directories(fs::path(file).parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << content;
    if (!stream.flush()) {
        throw std::system_error(errno, std::generic_category(), "writing " + file);
    }
    return file;
}

std::string TemporaryFolder::makeLink(std::string_view name, std::string_view target) const {
    std::string link = *this / name;
    fs::create_directories(fs::path(link).parent_path());
    fs::create_symlink(target, link);
    return link;
}

std::string ContentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace test_support

#pragma once

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <string>
#include <string_view>
#include <system_error>

namespace test_support {

/// A new, empty folder that goes with everything in it, but never with what a link in it points
/// to. Relative names are below it; folders above a name are made as needed.
class TemporaryFolder {
 public:
    TemporaryFolder()
        : path_(std::filesystem::canonical(std::filesystem::temp_directory_path()) /
                "tidewell-XXXXXX") {
        if (!::mkdtemp(path_.data()))
            throw std::system_error(errno, std::generic_category(), path_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    /// Absolute and canonical.
    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string operator/(std::string_view name) const {
        return std::string(path_).append("/").append(name);
    }

    // Each answers the absolute path.
    std::string makeFolder(std::string_view name) const {
        std::filesystem::create_directories(*this / name);
        return *this / name;
    }
    std::string makeFile(std::string_view name, std::string_view content = "") const {
        std::ofstream stream(withFolders(name), std::ios::binary);
        stream.exceptions(std::ios::failbit | std::ios::badbit);
        stream << content << std::flush;
        return *this / name;
    }
    /// The link's text may be relative, as for symlink(2).
    std::string makeLink(std::string_view name, std::string_view target) const {
        std::filesystem::create_symlink(target, withFolders(name));
        return *this / name;
    }

 private:
    [[nodiscard]] std::string withFolders(std::string_view name) const {
        std::filesystem::create_directories(std::filesystem::path(*this / name).parent_path());
        return *this / name;
    }

    std::string path_;
};

/// The whole file; empty when it cannot be read.
[[nodiscard]] inline std::string ContentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace test_support

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace test_support {

/// A new, empty folder that goes with everything in it, but never with what a link in it points
/// to. Relative names are below it; folders above a name are made as needed.
class TemporaryFolder {
 public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    /// Absolute and canonical.
    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string operator/(std::string_view name) const;

    // Each answers the absolute path.
    std::string makeFolder(std::string_view name) const;
    std::string makeFile(std::string_view name, std::string_view content = "") const;
    /// The link's text may be relative, as for symlink(2).
    std::string makeLink(std::string_view name, std::string_view target) const;

 private:
    std::string path_;
};

/// The whole file; empty when it cannot be read.
[[nodiscard]] std::string ContentOf(const std::string& path);

}  // namespace test_support

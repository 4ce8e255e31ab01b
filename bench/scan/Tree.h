#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

/// Folders as a person has them, of files of every kind without content, in a new folder below
/// `place`; removed with this. The same each time.
class ScanTree {
 public:
    ScanTree(const std::filesystem::path& place, std::size_t folders, std::size_t files);
    ScanTree(const ScanTree&) = delete;
    ScanTree& operator=(const ScanTree&) = delete;
    ~ScanTree();

    [[nodiscard]] const std::string& path() const { return path_; }

 private:
    std::string path_;
};

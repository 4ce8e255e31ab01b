#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "accounts/filters/FilenameFilter.h"
#include "backup/scanner/ScannedFiles.h"

namespace orv {

class orv_FileSystemItem;

/// Where a scan started.
class orv_ScanInfo {
 public:
    /// The item outlives this.
    orv_ScanInfo(orv_FileSystemItem* startItem, std::size_t offset)
        : item_(startItem), pathOffset_(offset) {}

    [[nodiscard]] orv_FileSystemItem* item() const { return item_; }
    /// Where in a request's path the part below the item begins: 1 when the item's path is "/",
    /// otherwise behind that path and its "/".
    [[nodiscard]] std::size_t pathOffset() const { return pathOffset_; }

 private:
    orv_FileSystemItem* item_;
    std::size_t pathOffset_;
};

/// What is directly in a folder and never counted, whatever the filters say: hidden entries, whose
/// names begin with a dot, and symbolic links, each of which is a file without bytes.
struct LeftOutCount {
    std::uint64_t files = 0;
    std::uint64_t bytes = 0;
    /// Their names.
    std::vector<std::string> hiddenFolders;
};

/// What a scan found directly in a folder.
struct FolderTotals {
    /// In bytes, of the files that count.
    std::uint64_t size = 0;
    std::uint64_t files = 0;
    /// Bytes by the type of the filter that included them.
    std::array<std::uint64_t, FILTER_TYPE_COUNT> filterSize{};
    LeftOutCount leftOut;
    /// Null when there are none.
    std::shared_ptr<const ScannedFiles> scannedFiles;
};

/// A folder to be scanned, or one that was, with what was found. Any thread.
class orv_FolderScannerRequest {
 public:
    /// To be scanned.
    orv_FolderScannerRequest(std::string folderPath, std::shared_ptr<const orv_ScanInfo> object)
        : path_(std::move(folderPath)), obj_(std::move(object)) {}
    /// Scanned.
    orv_FolderScannerRequest(std::string folderPath, std::shared_ptr<const orv_ScanInfo> object,
                             FolderTotals found)
        : path_(std::move(folderPath)),
          obj_(std::move(object)),
          finished_(true),
          totals_(std::move(found)) {}

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] const std::shared_ptr<const orv_ScanInfo>& obj() const { return obj_; }
    [[nodiscard]] bool finished() const { return finished_; }

    /// In bytes, of the files directly in the folder that count.
    [[nodiscard]] std::uint64_t size() const { return totals_.size; }
    [[nodiscard]] std::uint64_t files() const { return totals_.files; }
    [[nodiscard]] const std::array<std::uint64_t, FILTER_TYPE_COUNT>& filterSize() const {
        return totals_.filterSize;
    }
    [[nodiscard]] const LeftOutCount& leftOut() const { return totals_.leftOut; }
    /// Null when there are none.
    [[nodiscard]] const std::shared_ptr<const ScannedFiles>& scannedFiles() const {
        return totals_.scannedFiles;
    }

    /// Whether both ask for the same path for the same object.
    [[nodiscard]] bool isEqual(const orv_FolderScannerRequest& other) const {
        return path_ == other.path_ && obj_ == other.obj_;
    }
    /// Whether the folder is the one at the given path, or below it, without regard to case.
    [[nodiscard]] bool belongsToPath(std::string_view path) const;

 private:
    std::string path_;
    std::shared_ptr<const orv_ScanInfo> obj_;
    bool finished_ = false;
    FolderTotals totals_;
};

}  // namespace orv

#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "backup/scanner/FolderScannerRequest.h"
#include "backup/scanner/ScannerFilters.h"
#include "platform/FileDescriptor.h"

namespace orv {

/// A folder that stays open, so that its subfolders are found by name and not by path. Few are open
/// at a time.
class OpenFolder {
 public:
    /// Null when there are too many; then the descriptor is closed.
    [[nodiscard]] static std::shared_ptr<const OpenFolder> keep(platform::FileDescriptor folder);
    explicit OpenFolder(platform::FileDescriptor folder);
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;
    ~OpenFolder();

    [[nodiscard]] int descriptor() const { return folder_.get(); }

 private:
    platform::FileDescriptor folder_;
};

/// A folder that is to be read.
struct FolderPlace {
    std::string path;
    /// A link in the place of a subfolder is not followed.
    bool isSubfolder = false;
    /// What it is in, when that is open.
    std::shared_ptr<const OpenFolder> parent;
};

struct FolderReading {
    FolderTotals totals;
    /// Those that are to be scanned, as the disk lists them.
    std::vector<FolderPlace> subfolders;
};

/// Reads one folder after the other; may wait for the disk. One thread at a time.
class FolderReader {
 public:
    virtual ~FolderReader() = default;
    /// None for what cannot be opened, and once it is stopped.
    [[nodiscard]] virtual std::optional<FolderReading> read(const FolderPlace& folder,
                                                            const ScannerFilters& filters,
                                                            const std::atomic<bool>& isStopped) = 0;
};

/// Any thread.
using FolderReaderFactory = std::function<std::unique_ptr<FolderReader>()>;
[[nodiscard]] std::unique_ptr<FolderReader> MakeFolderReader();

}  // namespace orv

#pragma once

#include <memory>
#include <string>

#include "backup/scanner/FolderReader.h"
#include "backup/scanner/FolderScannerDelegate.h"
#include "backup/scanner/FolderScannerRequest.h"
#include "backup/scanner/ScannerFilters.h"
#include "platform/RunLoop.h"

namespace orv {

class orv_FilterSettings;
class ScanMailbox;
class ScanSession;

struct ScannerOptions {
    /// Whether a second thread reads folders ahead; what is told is the same without it.
    bool readAhead = true;
    FolderReaderFactory makeReader = MakeFolderReader;
};

/// Computes, on threads of its own, how much of folders would be backed up: depth first, and of
/// each folder what is directly in it. Main thread; no operation waits for a disk, so that a
/// network that does not answer holds up nothing but the scan. Stopped at first.
class orv_FolderScannerTask {
 public:
    /// Both outlive it.
    orv_FolderScannerTask(platform::RunLoop& runLoop, FolderScannerDelegate& delegate,
                          ScannerOptions options = {});
    orv_FolderScannerTask(const orv_FolderScannerTask&) = delete;
    orv_FolderScannerTask& operator=(const orv_FolderScannerTask&) = delete;
    /// As stop().
    ~orv_FolderScannerTask();

    /// Nothing happens while it runs.
    void start();
    /// Forgets all requests. The delegate is not called any more, whatever is under way.
    void stop();

    /// To be scanned after everything else, unless an equal request waits or is under way. Nothing
    /// happens while stopped.
    void requestComputePath(std::string path, std::shared_ptr<const orv_ScanInfo> object);
    /// To be scanned next.
    void insertRequestWithPath(std::string path, std::shared_ptr<const orv_ScanInfo> object);
    /// Forgets the folder, what is below it, and what would come of the folder that is being read;
    /// whether there was anything. Where no path is the same byte for byte, one that differs in
    /// case only is.
    bool cancelRequestForPath(const std::string& path);
    void cancelAllRequests();

    /// As setFilters, and keeps the folders that are never entered. Reads a file.
    void reloadFilterSettings(const orv_FilterSettings& settings);
    /// Holds from the next folder on.
    void setFilters(ScannerFilters filters);

 private:
    void renew();
    void abandon();

    platform::RunLoop& runLoop_;
    FolderScannerDelegate& delegate_;
    const ScannerOptions options_;
    std::shared_ptr<const ScannerFilters> filters_ = std::make_shared<const ScannerFilters>();
    bool stopped_ = true;
    std::shared_ptr<ScanMailbox> mailbox_;
    std::shared_ptr<ScanSession> session_;
};

}  // namespace orv

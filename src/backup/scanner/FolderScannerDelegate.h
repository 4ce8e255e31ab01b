#pragma once

namespace orv {

class orv_FolderScannerRequest;

/// Who is told what the scanner finds. Main thread; a call may stop or destroy the scanner.
class FolderScannerDelegate {
 public:
    virtual ~FolderScannerDelegate() = default;

    /// What is directly in a folder; it comes before anything of its subfolders. Also for a path
    /// that was cancelled while its folder was read.
    virtual void folderScanResult(const orv_FolderScannerRequest& request) = 0;
    /// The folder, of which a result came before, and everything below it is done.
    virtual void folderSubtreeScanFinished(const orv_FolderScannerRequest& request) = 0;
    /// Nothing more is to be scanned.
    virtual void folderScanningFinished() = 0;
};

}  // namespace orv

#include "backup/sharing/SharingWindowController.h"
#include "foundation/system/LocalizedString.h"

// How the sizes in the window are computed.

namespace orv {

void orv_SharingWindowController::startScanRequest(orv_FileSystemItem& item) {
    outlets_._spinner.startAnimation();
    item.resetScanState(orv_FileSystemItem::ScanRequested);
    const std::string path = item.fullPath();
    const std::size_t offset = path == "/" ? 1 : path.size() + 1;
    folderScanner.requestComputePath(path, std::make_shared<const orv_ScanInfo>(&item, offset));
}

void orv_SharingWindowController::restartScanRequest(orv_FileSystemItem& item) {
    cancelScanRequest(item);
    computationStarted();
    startScanRequest(item);
}

void orv_SharingWindowController::startScanTopLevelFolders() {
    tree_.tree->resetScanState(orv_FileSystemItem::Idle);
    const auto items = tree_.tree->findTopLevelItems();
    if (items.empty()) {
        if (computationInProgress_) computationFinished();
        return;
    }
    computationStarted();
    for (orv_FileSystemItem* item : items)
        startScanRequest(*item);
}

/// Results that are on their way arrive later and find their folders by path.
bool orv_SharingWindowController::cancelScanRequest(orv_FileSystemItem& item) {
    if (!folderScanner.cancelRequestForPath(item.fullPath())) return false;
    if (item.getScanningState() == orv_FileSystemItem::ScanRequested)
        item.resetScanState(orv_FileSystemItem::Idle);
    return true;
}

void orv_SharingWindowController::cancelAllrequests() {
    folderScanner.cancelAllRequests();
    // the scanner may hang at a disk that does not answer, and has nothing to do now
    if (computationInProgress_ && pendingFilters_ == 0) computationFinished();
}

void orv_SharingWindowController::computationStarted() {
    outlets_._spinner.startAnimation();
    if (computationInProgress_) return;
    computationInProgress_ = true;
    hiddenCount_.request_stop();
    scannedFolders_ = 0;
    scannedFiles_ = 0;
    showProgress();
    storageInfoDidChange();
}

void orv_SharingWindowController::computationFinished() {
    computationInProgress_ = false;
    outlets_._spinner.stopAnimation();
    showProgress();
    refreshStorageSummary();
    if (isAsOpened_) {
        isAsOpened_ = false;
        selectionAtFirst_ = storage_.figures().thisComputer;
        storageInfoDidChange();
    }
    showLeftOut();
}

void orv_SharingWindowController::showProgress() {
    outlets_._progressText.setHidden(!computationInProgress_);
    outlets_._progressText.setStringValue(quelm::FormatLocalizedString(
        "Sharing.Progress", "Computing sizes: %qd files in %qd folders so far",
        {static_cast<std::int64_t>(scannedFiles_), static_cast<std::int64_t>(scannedFolders_)}));
}

void orv_SharingWindowController::folderScanResult(const orv_FolderScannerRequest& request) {
    if (isClosed_) return;
    const orv_ScanInfo& start = *request.obj();
    start.item()->updateSubpath(request.path(), start.pathOffset(), request.size());
    ledger_.note(request);
    ++scannedFolders_;
    scannedFiles_ += request.files();
    showProgress();
    reloadTree();
}

/// Nothing is to come of what lies on a volume that is not backed up.
void orv_SharingWindowController::settleUnscanned() {
    auto* const computer = tree_.tree->rootFileSystemItem();
    if (!computer) return;
    for (const std::string& path : tree_.unscannedFolders) {
        bool isWhole = false;
        auto& item = computer->findItemForSubpath(path, isWhole);
        if (isWhole && item.getScanningState() == orv_FileSystemItem::ScanRequested)
            item.resetScanState(orv_FileSystemItem::SubtreeScanned);
    }
}

void orv_SharingWindowController::folderSubtreeScanFinished(
    const orv_FolderScannerRequest& request) {
    if (isClosed_) return;
    const orv_ScanInfo& start = *request.obj();
    start.item()->setScannedPath(request.path(), start.pathOffset());
}

void orv_SharingWindowController::folderScanningFinished() {
    if (isClosed_) return;
    settleUnscanned();
    reloadTree();
    // the end of a scan that a change of the filters gave up
    if (pendingFilters_ == 0) computationFinished();
}

}  // namespace orv

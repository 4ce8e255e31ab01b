#include "backup/scanner/FolderScannerTask.h"

#include <utility>

#include "backup/scanner/ScanMailbox.h"
#include "backup/scanner/ScanSession.h"

namespace orv {

orv_FolderScannerTask::orv_FolderScannerTask(platform::RunLoop& runLoop,
                                             FolderScannerDelegate& delegate,
                                             ScannerOptions options)
    : runLoop_(runLoop), delegate_(delegate), options_(std::move(options)) {
    renew();
}

orv_FolderScannerTask::~orv_FolderScannerTask() {
    abandon();
}

void orv_FolderScannerTask::renew() {
    mailbox_ = std::make_shared<ScanMailbox>(runLoop_, delegate_);
    session_ = std::make_shared<ScanSession>(mailbox_, options_.makeReader, filters_);
}

void orv_FolderScannerTask::start() {
    if (!std::exchange(stopped_, false)) return;
    session_->start(options_.readAhead);
}

void orv_FolderScannerTask::stop() {
    abandon();
    renew();
    stopped_ = true;
}

void orv_FolderScannerTask::abandon() {
    mailbox_->close();
    session_->stop();
}

void orv_FolderScannerTask::requestComputePath(std::string path,
                                               std::shared_ptr<const orv_ScanInfo> object) {
    if (!stopped_) session_->addToBottom(std::move(path), std::move(object));
}

void orv_FolderScannerTask::insertRequestWithPath(std::string path,
                                                  std::shared_ptr<const orv_ScanInfo> object) {
    session_->pushOnTop(std::move(path), std::move(object));
}

bool orv_FolderScannerTask::cancelRequestForPath(const std::string& path) {
    return session_->cancel(path);
}

void orv_FolderScannerTask::cancelAllRequests() {
    session_->cancelAll();
}

void orv_FolderScannerTask::reloadFilterSettings(const orv_FilterSettings& settings) {
    ScannerFilters filters = ScannerFilters::of(settings);
    filters.unscannedFolders = filters_->unscannedFolders;
    setFilters(std::move(filters));
}

void orv_FolderScannerTask::setFilters(ScannerFilters filters) {
    filters_ = std::make_shared<const ScannerFilters>(std::move(filters));
    session_->setFilters(filters_);
}

}  // namespace orv

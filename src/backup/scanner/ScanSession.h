#pragma once

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>

#include "backup/scanner/FolderReader.h"
#include "backup/scanner/ScanMailbox.h"
#include "backup/scanner/ScanStack.h"
#include "backup/scanner/ScannerFilters.h"

namespace orv {

/// One run of the scanner, from its start to its stop. Its threads share it, so that whoever stops
/// it need not wait for one that hangs in a call of the system: that thread ends on its own when
/// the call returns. Operations are for the main thread.
class ScanSession : public std::enable_shared_from_this<ScanSession> {
 public:
    ScanSession(std::shared_ptr<ScanMailbox> mailbox, FolderReaderFactory makeReader,
                std::shared_ptr<const ScannerFilters> filters);

    /// Once only.
    void start(bool readAhead);
    void stop();

    void addToBottom(std::string path, std::shared_ptr<const orv_ScanInfo> object);
    void pushOnTop(std::string path, std::shared_ptr<const orv_ScanInfo> object);
    bool cancel(const std::string& path);
    void cancelAll();
    void setFilters(std::shared_ptr<const ScannerFilters> filters);

 private:
    using Lock = std::unique_lock<std::mutex>;
    enum class Helper { Unwanted, Wanted, Awake, Asleep };
    using Filters = std::shared_ptr<const ScannerFilters>;

    void added();

    // the worker, which tells what is found; all under the lock
    void workerLoop();
    void workOn(const std::shared_ptr<ScanJob>& job, FolderReader& reader, Lock& lock);
    void waitNextRequest(Lock& lock);
    void waitForHelper(FolderReader& reader, Lock& lock);
    void tellSubtreeFinished(const std::shared_ptr<ScanJob>& job, Lock& lock);
    void performFolderScan(const std::shared_ptr<ScanJob>& job, FolderReader& reader, Lock& lock);
    void freeRetired(Lock& lock);

    // the helper, which reads ahead; likewise
    void help();
    void sleepAsHelper(Lock& lock);
    void callHelper();
    void readAhead(const std::shared_ptr<ScanJob>& job, FolderReader& reader, Lock& lock);
    void read(ScanJob& job, FolderReader& reader, Lock& lock);

    const std::shared_ptr<ScanMailbox> mailbox_;
    const FolderReaderFactory makeReader_;
    /// Written under the lock, read without.
    std::atomic<bool> isStopped_ = false;

    std::mutex mutex_;  // for what follows
    std::condition_variable workerWakes_;
    std::condition_variable helperWakes_;
    /// For the helper, with the folder on top.
    bool workerWaits_ = false;
    Helper helper_ = Helper::Unwanted;
    /// How many folders were scanned since the helper fell asleep.
    int scannedMeanwhile_ = 0;
    bool isScanning_ = false;
    ScanStack requests;
    /// Cancelled, to be freed where that may take its time.
    ScanJobs retired_;
    Filters filters_;
};

}  // namespace orv

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "backup/scanner/FolderReader.h"

namespace orv {

struct ScanJob;
using ScanJobs = std::vector<std::shared_ptr<ScanJob>>;

/// A folder on its way through the scanner.
struct ScanJob {
    enum class Reading { None, UnderWay, Ready };

    FolderPlace folder;
    std::shared_ptr<const orv_ScanInfo> object;
    /// Whether its own scan has begun; what is left of it is to tell that its subtree is done.
    bool isBegun = false;
    /// Whether it was taken off the stack before it was done.
    bool isCancelled = false;

    /// Whether it is read ahead, and with which filters.
    Reading ahead = Reading::None;
    std::shared_ptr<const ScannerFilters> filters;

    // What was read; whoever reads it may write it without a lock.
    /// Null for what cannot be opened.
    std::shared_ptr<const orv_FolderScannerRequest> result;
    /// Those that are to be scanned after it, the first one last.
    ScanJobs subfolders;
};

/// The folders that are to be scanned, the next on top. One thread at a time.
class ScanStack {
 public:
    [[nodiscard]] bool empty() const { return jobs_.empty(); }
    [[nodiscard]] const std::shared_ptr<ScanJob>& top() const { return jobs_.back(); }
    [[nodiscard]] bool contains(const orv_ScanInfo* object, std::string_view path) const;
    /// The next folder in order that nobody reads, among the subfolders of what was read ahead,
    /// too; null when none of the next ones is left.
    [[nodiscard]] std::shared_ptr<ScanJob> nextToReadAhead() const;

    void pushOnTop(std::shared_ptr<ScanJob> job) { jobs_.push_back(std::move(job)); }
    /// The last comes to the top.
    void insertRequests(ScanJobs jobs);
    void addToBottom(std::shared_ptr<ScanJob> job);
    void pop() { jobs_.pop_back(); }
    void remove(const ScanJob& job);

    // Both answer the cancelled jobs. To free one may wait for a disk: a folder is closed.
    /// The folder and what is below it. One whose name differs in case is another folder.
    [[nodiscard]] ScanJobs cancel(std::string_view path);
    [[nodiscard]] ScanJobs cancelAll();

 private:
    ScanJobs jobs_;
};

}  // namespace orv

#pragma once

#include <algorithm>
#include <condition_variable>
#include <fmt/format.h>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "backup/scanner/FolderScannerTask.h"
#include "support/ManualRunLoop.h"

namespace test_support {

/// Writes down what the scanner tells, as lines, and keeps the results.
class RecordingScanDelegate final : public orv::FolderScannerDelegate {
 public:
    void folderScanResult(const orv::orv_FolderScannerRequest& request) override {
        told.push_back(
            fmt::format("{}: {} bytes in {}", request.path(), request.size(), request.files()));
        results.push_back(request);
        if (onResult) onResult();
    }
    void folderSubtreeScanFinished(const orv::orv_FolderScannerRequest& request) override {
        told.push_back(request.path() + " done");
    }
    void folderScanningFinished() override {
        told.emplace_back("finished");
        isFinished = true;
    }

    [[nodiscard]] bool wasTold(const std::string& line) const {
        return std::ranges::find(told, line) != told.end();
    }

    std::vector<std::string> told;
    std::vector<orv::orv_FolderScannerRequest> results;
    std::function<void()> onResult;
    bool isFinished = false;
};

/// Holds up readers of folders, and knows what they read.
class FolderGate {
 public:
    void hold(const std::string& path) {
        const std::lock_guard lock(mutex_);
        held_.insert(path);
    }
    void release(const std::string& path) {
        const std::lock_guard lock(mutex_);
        held_.erase(path);
        changed_.notify_all();
    }
    void pass(const std::string& path) {
        std::unique_lock lock(mutex_);
        arrived_.insert(path);
        changed_.notify_all();
        changed_.wait(lock, [&] { return !held_.contains(path); });
    }
    void left(const std::string& path) {
        const std::lock_guard lock(mutex_);
        left_.insert(path);
        changed_.notify_all();
    }
    void awaitArrival(const std::string& path) { await(arrived_, path); }
    void awaitLeaving(const std::string& path) { await(left_, path); }

 private:
    void await(const std::multiset<std::string>& paths, const std::string& path) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return paths.contains(path); });
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::set<std::string> held_;
    std::multiset<std::string> arrived_;
    std::multiset<std::string> left_;
};

class GatedFolderReader final : public orv::FolderReader {
 public:
    explicit GatedFolderReader(std::shared_ptr<FolderGate> gate) : gate_(std::move(gate)) {}

    std::optional<orv::FolderReading> read(const orv::FolderPlace& folder,
                                           const orv::ScannerFilters& filters,
                                           const std::atomic<bool>& isStopped) override {
        gate_->pass(folder.path);
        auto reading = reader_->read(folder, filters, isStopped);
        gate_->left(folder.path);
        return reading;
    }

 private:
    std::shared_ptr<FolderGate> gate_;
    std::unique_ptr<orv::FolderReader> reader_ = orv::MakeFolderReader();
};

/// A running scanner with all that it needs.
struct ScannerUnderTest {
    explicit ScannerUnderTest(bool readAhead = true)
        : task(std::make_unique<orv::orv_FolderScannerTask>(
              loop, delegate, orv::ScannerOptions{readAhead, [gate = gate] {
                                                      return std::make_unique<GatedFolderReader>(
                                                          gate);
                                                  }})) {
        task->start();
    }

    void request(const std::string& path) { task->requestComputePath(path, object); }
    void insert(const std::string& path) { task->insertRequestWithPath(path, object); }

    void handOver() { loop.advance(std::chrono::milliseconds(10)); }
    template <class Condition>
    void until(Condition condition) {
        for (handOver(); !condition(); handOver())
            std::this_thread::yield();
    }
    void untilFinished() {
        until([&] { return delegate.isFinished; });
    }

    ManualRunLoop loop;
    RecordingScanDelegate delegate;
    std::shared_ptr<FolderGate> gate = std::make_shared<FolderGate>();
    std::shared_ptr<const orv::orv_ScanInfo> object =
        std::make_shared<const orv::orv_ScanInfo>(nullptr, 0);
    std::unique_ptr<orv::orv_FolderScannerTask> task;
};

}  // namespace test_support

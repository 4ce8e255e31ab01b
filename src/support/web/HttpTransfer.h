#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>

#include "support/web/HttpHop.h"
#include "support/web/HttpTypes.h"

namespace orv {

/// One request, with the redirects that it leads to: to http and https only, and never back from
/// https to http.
class HttpTransfer {
 public:
    HttpTransfer(std::string address, HttpOptions options);
    HttpTransfer(const HttpTransfer&) = delete;
    HttpTransfer& operator=(const HttpTransfer&) = delete;

    /// Once; returns with the reply, or soon after `cancel`.
    [[nodiscard]] HttpReply run();
    /// Any thread; waits for nothing.
    void cancel();
    [[nodiscard]] bool isCancelled() const { return isCancelled_; }
    /// Runs the task, unless `cancel` was called; `cancel` returns only after it. Any thread.
    void unlessCancelled(const std::function<void()>& task);

 private:
    /// Makes the loop the one that `cancel` wakes; null for none.
    void setRunning(CurlLoop* loop);
    [[nodiscard]] HttpReply follow(const CurlLibrary& curl, CurlLoop& loop);
    [[nodiscard]] std::chrono::milliseconds left() const;
    [[nodiscard]] const char* firstSchemes() const;

    const std::string address_;
    const HttpOptions options_;
    const std::chrono::steady_clock::time_point deadline_;
    std::atomic<bool> isCancelled_ = false;
    std::mutex mutex_;
    CurlLoop* running_ = nullptr;  // under the mutex
};

}  // namespace orv

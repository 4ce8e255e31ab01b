#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/linux/secrets/GlibHandles.h"

namespace platform {

/// Cancels GLib calls once a time has passed. Without a limit it never does.
class CallDeadline {
 public:
    explicit CallDeadline(std::optional<std::chrono::milliseconds> limit) {
        if (!limit) return;
        watch_ = std::jthread([this, limit = *limit](const std::stop_token& stop) {
            std::unique_lock lock(mutex_);
            ended_.wait_for(lock, stop, limit, [] { return false; });
            if (stop.stop_requested()) return;
            passed_ = true;
            g_cancellable_cancel(cancellable_.get());
        });
    }

    /// For the calls.
    [[nodiscard]] GCancellable* cancellable() const { return cancellable_.get(); }
    [[nodiscard]] bool passed() const { return passed_; }

 private:
    GObjectHandle<GCancellable> cancellable_{g_cancellable_new()};
    std::atomic<bool> passed_ = false;
    std::mutex mutex_;
    std::condition_variable_any ended_;
    std::jthread watch_;  // last, so that it ends before what it uses
};

}  // namespace platform

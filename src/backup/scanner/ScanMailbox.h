#pragma once

#include <chrono>
#include <deque>
#include <memory>
#include <mutex>

#include "platform/RunLoop.h"

namespace orv {

class FolderScannerDelegate;
class orv_FolderScannerRequest;

/// Something that the delegate is told.
struct ScanMessage {
    enum class Kind { Result, SubtreeFinished, ScanningFinished };

    Kind kind;
    /// Null for the last kind.
    std::shared_ptr<const orv_FolderScannerRequest> request;
};

/// Carries messages to the main thread, in order and many together, so that neither thread is busy
/// with handing over; and few enough together that the interface never stands still.
class ScanMailbox : public std::enable_shared_from_this<ScanMailbox> {
 public:
    /// How long a message waits for others at most.
    static constexpr std::chrono::milliseconds gathering{4};
    /// Messages go on after a pause once their handling took that long.
    static constexpr std::chrono::milliseconds handling{2};
    static constexpr std::chrono::milliseconds pause{1};

    /// Both are used on the main thread only, and until it is closed.
    ScanMailbox(platform::RunLoop& runLoop, FolderScannerDelegate& delegate)
        : runLoop_(runLoop), delegate_(delegate) {}

    /// Any thread.
    void send(ScanMessage message);
    /// The end of a scan that nobody was told of is not told; whether there was one. Main thread.
    [[nodiscard]] bool takeBackFinished();
    /// Nobody is told anything from now on. Main thread.
    void close();

 private:
    void deliverAfter(std::chrono::milliseconds delay);
    void deliver();
    void tell(const ScanMessage& message);
    [[nodiscard]] bool collect();

    platform::RunLoop& runLoop_;
    FolderScannerDelegate& delegate_;
    std::unique_ptr<platform::RunLoop::Timer> timer_;
    /// What is handed over just now.
    std::deque<ScanMessage> collected_;
    std::mutex mutex_;  // for what follows
    std::deque<ScanMessage> messages_;
    /// Whether a delivery is on its way, which will find what is sent meanwhile.
    bool isUnderWay_ = false;
    bool isClosed_ = false;
};

}  // namespace orv

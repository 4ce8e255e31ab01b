#include "backup/scanner/ScanMailbox.h"

#include <utility>

#include "backup/scanner/FolderScannerDelegate.h"
#include "backup/scanner/FolderScannerRequest.h"

namespace orv {

void ScanMailbox::send(ScanMessage message) {
    const std::lock_guard lock(mutex_);
    if (isClosed_) return;
    messages_.push_back(std::move(message));
    if (std::exchange(isUnderWay_, true)) return;
    // under the lock, because the run loop may be gone once this is closed
    runLoop_.post([self = shared_from_this()] { self->deliverAfter(gathering); });
}

bool ScanMailbox::takeBackFinished() {
    const auto isFinish = [](const ScanMessage& message) {
        return message.kind == ScanMessage::Kind::ScanningFinished;
    };
    const std::lock_guard lock(mutex_);
    return std::erase_if(collected_, isFinish) + std::erase_if(messages_, isFinish) > 0;
}

void ScanMailbox::close() {
    timer_.reset();
    collected_.clear();
    const std::lock_guard lock(mutex_);
    isClosed_ = true;
    messages_.clear();
}

void ScanMailbox::deliverAfter(std::chrono::milliseconds delay) {
    {
        const std::lock_guard lock(mutex_);
        if (isClosed_) return;
    }
    timer_ = runLoop_.after(delay, [weak = weak_from_this()] {
        if (const auto self = weak.lock()) self->deliver();
    });
}

void ScanMailbox::deliver() {
    if (collected_.empty() && !collect()) return;
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    while (!collected_.empty() && Clock::now() - start < handling) {
        const ScanMessage message = std::move(collected_.front());
        collected_.pop_front();
        tell(message);
    }
    // while messages come, it is cheaper to look for more than to be called for each
    deliverAfter(collected_.empty() ? gathering : pause);
}

void ScanMailbox::tell(const ScanMessage& message) {
    switch (message.kind) {
        case ScanMessage::Kind::Result:
            return delegate_.folderScanResult(*message.request);
        case ScanMessage::Kind::SubtreeFinished:
            return delegate_.folderSubtreeScanFinished(*message.request);
        case ScanMessage::Kind::ScanningFinished:
            return delegate_.folderScanningFinished();
    }
}

/// Whether there is anything; otherwise nothing is under way any more.
bool ScanMailbox::collect() {
    const std::lock_guard lock(mutex_);
    collected_.swap(messages_);
    isUnderWay_ = !collected_.empty();
    return isUnderWay_;
}

}  // namespace orv

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
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    while (const auto message = next()) {
        tell(*message);
        if (Clock::now() - start < handling) continue;
        deliverAfter(pause);
        return;
    }
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

std::optional<ScanMessage> ScanMailbox::next() {
    if (collected_.empty() && !collect()) return std::nullopt;
    auto message = std::move(collected_.front());
    collected_.pop_front();
    return message;
}

/// Whether there is anything; otherwise the delivery ends.
bool ScanMailbox::collect() {
    const std::lock_guard lock(mutex_);
    collected_.swap(messages_);
    isUnderWay_ = !collected_.empty();
    return isUnderWay_;
}

}  // namespace orv

#include "platform/linux/bus/Inbox.h"

#include <chrono>
#include <utility>

namespace platform {

namespace {

constexpr std::size_t mostBytes = std::size_t{8} << 20U;
constexpr std::size_t mostItems = 8192;

}  // namespace

bool Inbox::hasRoom() {
    if (!full_ && (cost_ >= mostBytes || count_ >= mostItems)) {
        full_ = true;
        // The main thread may have worked it off in between, and would not say so any more.
        if (isHalfEmpty()) full_ = false;
    }
    return !full_;
}

bool Inbox::isHalfEmpty() const {
    return cost_ <= mostBytes / 2 && count_ <= mostItems / 2;
}

void Inbox::push(RunLoop::Task delivery, std::size_t cost) {
    const std::lock_guard lock(mutex_);
    if (closed_) return;
    cost_ += cost;
    ++count_;
    arrived_.push_back({std::move(delivery), cost});
    schedule();
}

void Inbox::close() {
    std::deque<Item> dropped;
    current_.clear();
    const std::lock_guard lock(mutex_);
    closed_ = true;
    arrived_.swap(dropped);
}

/// The mutex is held.
void Inbox::schedule() {
    if (std::exchange(scheduled_, true)) return;
    runLoop_->post([weak = weak_from_this()] {
        if (const auto self = weak.lock()) self->drain();
    });
}

void Inbox::drain() {
    {
        const std::lock_guard lock(mutex_);
        scheduled_ = false;
        // What is left goes on after this slice, or in a modal session within a delivery.
        if (count_ > 1) schedule();
    }
    const auto end = std::chrono::steady_clock::now() + slice;
    do {
        const RunLoop::Task delivery = take();
        if (!delivery) return;
        delivery();
    } while (std::chrono::steady_clock::now() < end);
}

bool Inbox::takeOver() {
    const std::lock_guard lock(mutex_);
    if (current_.empty()) current_.swap(arrived_);
    return !current_.empty();
}

RunLoop::Task Inbox::take() {
    if (current_.empty() && !takeOver()) return nullptr;
    RunLoop::Task delivery = std::move(current_.front().delivery);
    cost_ -= current_.front().cost;
    --count_;
    current_.pop_front();
    if (full_ && isHalfEmpty()) {
        full_ = false;
        drained_();
    }
    return delivery;
}

}  // namespace platform

#include "platform/linux/bus/Inbox.h"

#include <chrono>
#include <utility>

namespace platform {

namespace {

constexpr std::size_t mostBytes = std::size_t{8} << 20U;
constexpr std::size_t mostItems = 8192;
constexpr std::chrono::milliseconds slice(5);

}  // namespace

bool Inbox::hasRoom() {
    const std::lock_guard lock(mutex_);
    if (!full_) full_ = cost_ >= mostBytes || items_.size() >= mostItems;
    return !full_;
}

void Inbox::push(RunLoop::Task delivery, std::size_t cost) {
    const std::lock_guard lock(mutex_);
    if (closed_) return;
    items_.push_back({std::move(delivery), cost});
    cost_ += cost;
    schedule();
}

void Inbox::close() {
    std::deque<Item> dropped;
    const std::lock_guard lock(mutex_);
    closed_ = true;
    cost_ = 0;
    items_.swap(dropped);
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
    }
    const auto end = std::chrono::steady_clock::now() + slice;
    do {
        const RunLoop::Task delivery = take();
        if (!delivery) return;
        delivery();
    } while (std::chrono::steady_clock::now() < end);
}

/// Before a delivery runs, the next slice is posted if anything is left: a modal session within the
/// delivery goes on with it.
RunLoop::Task Inbox::take() {
    std::unique_lock lock(mutex_);
    if (items_.empty()) return nullptr;
    RunLoop::Task delivery = std::move(items_.front().delivery);
    cost_ -= items_.front().cost;
    items_.pop_front();
    if (!items_.empty()) schedule();
    const bool drained = full_ && cost_ <= mostBytes / 2 && items_.size() <= mostItems / 2;
    if (drained) full_ = false;
    lock.unlock();
    if (drained) drained_();
    return delivery;
}

}  // namespace platform

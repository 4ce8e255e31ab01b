#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

#include "platform/RunLoop.h"

namespace platform {

/// Hands deliveries from another thread to the main one, in order. The main thread runs them in
/// slices of a few milliseconds, so that its timers and painting have their turn, also in a modal
/// session that a delivery begins. What waits is bounded by `room`: the other thread asks for it
/// before it fetches the next.
class Inbox : public std::enable_shared_from_this<Inbox> {
 public:
    /// For how long the main thread works on end.
    static constexpr std::chrono::milliseconds slice{5};

    /// `drained` is called on the main thread when there is room again.
    Inbox(RunLoop& runLoop, std::function<void()> drained)
        : runLoop_(&runLoop), drained_(std::move(drained)) {}

    /// Any thread. False from the moment on when about 8 MiB or 8,192 deliveries wait, until half
    /// of it is worked off.
    [[nodiscard]] bool hasRoom();
    /// Any thread. `cost` is what the delivery holds, in bytes. It must not throw.
    void push(RunLoop::Task delivery, std::size_t cost);
    /// Main thread: nothing runs any more.
    void close();

 private:
    struct Item {
        RunLoop::Task delivery;
        std::size_t cost;
    };

    void schedule();
    void drain();
    [[nodiscard]] bool takeOver();
    [[nodiscard]] bool isHalfEmpty() const;
    [[nodiscard]] RunLoop::Task take();

    RunLoop* runLoop_;
    std::function<void()> drained_;
    std::deque<Item> current_;            // main thread only; taken over from `arrived_` at one go
    std::atomic<std::size_t> cost_ = 0;   // of both
    std::atomic<std::size_t> count_ = 0;  // in both
    std::atomic<bool> full_ = false;
    std::mutex mutex_;  // for what follows
    std::deque<Item> arrived_;
    bool scheduled_ = false;
    bool closed_ = false;
};

}  // namespace platform

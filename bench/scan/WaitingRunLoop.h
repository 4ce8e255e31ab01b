#pragma once

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/RunLoop.h"

/// A run loop of posted tasks and timers that waits as the real one does.
class WaitingRunLoop final : public platform::RunLoop {
 public:
    void post(Task task) override {
        const std::lock_guard lock(mutex_);
        tasks_.push_back(std::move(task));
        changed_.notify_one();
    }
    [[nodiscard]] std::unique_ptr<Timer> after(std::chrono::milliseconds delay,
                                               Task task) override {
        auto handle = std::make_unique<Handle>();
        handle->alarm = std::make_shared<Alarm>(Alarm{Clock::now() + delay, std::move(task)});
        alarms_.push_back(handle->alarm);
        return handle;
    }
    [[nodiscard]] std::unique_ptr<Timer> every(std::chrono::milliseconds, Task) override {
        return nullptr;
    }
    [[nodiscard]] std::unique_ptr<Watch> watch(int, Task) override { return nullptr; }
    int runModal() override { return 0; }
    void stopModal(int) override {}
    void processPending() override {}
    [[nodiscard]] TimePoint now() const override { return std::chrono::system_clock::now(); }

    void runUntil(const bool& isDone) {
        while (!isDone)
            runOne();
    }

 private:
    using Clock = std::chrono::steady_clock;
    struct Alarm {
        Clock::time_point due;
        Task task;
    };
    struct Handle final : Timer {
        std::shared_ptr<Alarm> alarm;
    };

    void runOne() {
        if (const Task task = nextTask()) return task();
        std::erase_if(alarms_, [](const auto& held) { return held.expired(); });
        for (const auto& held : std::exchange(alarms_, {})) {
            const auto alarm = held.lock();
            if (!alarm) continue;
            if (alarm->due > Clock::now()) {
                alarms_.push_back(held);
            } else {
                alarm->task();
            }
        }
    }

    /// None when it is time to look at the timers.
    [[nodiscard]] Task nextTask() {
        std::unique_lock lock(mutex_);
        auto due = Clock::time_point::max();
        for (const auto& held : alarms_) {
            if (const auto alarm = held.lock()) due = std::min(due, alarm->due);
        }
        const auto isAny = [this] { return !tasks_.empty(); };
        if (due == Clock::time_point::max()) {
            changed_.wait(lock, isAny);
        } else if (!changed_.wait_until(lock, due, isAny)) {
            return nullptr;
        }
        Task task = std::move(tasks_.front());
        tasks_.pop_front();
        return task;
    }

    std::vector<std::weak_ptr<Alarm>> alarms_;
    std::mutex mutex_;  // for the tasks
    std::condition_variable changed_;
    std::deque<Task> tasks_;
};

#pragma once

#include <algorithm>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/RunLoop.h"

namespace test_support {

/// A run loop whose time stands still until the test moves it. A modal session moves it too, from
/// timer to timer. What would never end (a session that nothing can stop, tasks that post
/// themselves for ever) throws std::logic_error.
class ManualRunLoop final : public platform::RunLoop {
 public:
    using Duration = std::chrono::milliseconds;

    void post(Task task) override {
        const std::lock_guard lock(mutex_);
        tasks_.push_back(std::move(task));
    }
    [[nodiscard]] std::unique_ptr<Timer> after(Duration delay, Task task) override {
        return add({now_ + std::max(delay, Duration(0)), Duration(0), std::move(task)});
    }
    /// An interval is at least a millisecond.
    [[nodiscard]] std::unique_ptr<Timer> every(Duration interval, Task task) override {
        interval = std::max(interval, Duration(1));
        return add({now_ + interval, interval, std::move(task)});
    }
    [[nodiscard]] std::unique_ptr<Watch> watch(int descriptor, Task readable) override {
        std::erase_if(watches_, [](const auto& other) { return other.expired(); });
        auto handle = std::make_unique<WatchHandle>();
        handle->watched = std::make_shared<Watched>(Watched{descriptor, std::move(readable)});
        watches_.push_back(handle->watched);
        return handle;
    }
    int runModal() override {
        std::optional<int> code;
        sessions_.push_back(&code);
        while (!code && runOne(TimePoint::max())) {
        }
        sessions_.pop_back();
        if (!code) throw std::logic_error("a modal session that nothing stops");
        return *code;
    }
    void stopModal(int code) override {
        if (!sessions_.empty()) *sessions_.back() = code;
    }
    void processPending() override { advance(Duration(0)); }
    [[nodiscard]] TimePoint now() const override { return now_; }

    /// Runs what is posted and then every timer that falls due, each at its own time, and what
    /// these post.
    void advance(Duration duration) {
        const TimePoint end = now_ + duration;
        while (runOne(end)) {
        }
        now_ = std::max(now_, end);
    }

 private:
    struct Alarm {
        TimePoint due;
        Duration interval;  // zero fires once
        Task task;          // empty while it runs and once it is done
    };
    struct Handle final : Timer {
        std::shared_ptr<Alarm> alarm;
    };

    struct Watched {
        int descriptor;
        Task readable;
    };
    struct WatchHandle final : Watch {
        std::shared_ptr<Watched> watched;
    };

    std::unique_ptr<Timer> add(Alarm alarm) {
        std::erase_if(alarms_, [](const auto& other) { return other.expired(); });
        auto handle = std::make_unique<Handle>();
        handle->alarm = std::make_shared<Alarm>(std::move(alarm));
        alarms_.push_back(handle->alarm);
        return handle;
    }

    /// One posted task, or one timer that is due by `limit`; false when there is neither.
    bool runOne(TimePoint limit) {
        constexpr int mostSteps = 1'000'000;
        if (++steps_ > mostSteps) throw std::logic_error("tasks that never come to an end");
        std::unique_lock lock(mutex_);
        if (!tasks_.empty()) {
            const Task task = std::move(tasks_.front());
            tasks_.pop_front();
            lock.unlock();
            task();
            return true;
        }
        lock.unlock();
        if (runReadable()) return true;
        const auto alarm = nextAlarm();
        if (!alarm || alarm->due > limit) return false;
        fire(*alarm);
        return true;
    }

    bool runReadable() {
        for (const auto& held : std::vector(watches_)) {
            const auto watched = held.lock();
            pollfd request{watched ? watched->descriptor : -1, POLLIN, 0};
            if (::poll(&request, 1, 0) < 1) continue;
            watched->readable();
            return true;
        }
        return false;
    }

    [[nodiscard]] std::shared_ptr<Alarm> nextAlarm() const {
        std::shared_ptr<Alarm> next;
        for (const auto& held : alarms_) {
            const auto alarm = held.lock();
            if (alarm && alarm->task && (!next || alarm->due < next->due)) next = alarm;
        }
        return next;
    }

    void fire(Alarm& alarm) {
        now_ = std::max(now_, alarm.due);
        alarm.due += alarm.interval;
        Task task = std::exchange(alarm.task, nullptr);
        task();
        alarm.due = std::max(alarm.due, now_);  // what a modal session within it missed fires once
        if (alarm.interval > Duration(0)) alarm.task = std::move(task);
    }

    TimePoint now_{std::chrono::seconds(1'700'000'000)};
    int steps_ = 0;
    std::vector<std::weak_ptr<Alarm>> alarms_;     // owned by their handles
    std::vector<std::weak_ptr<Watched>> watches_;  // likewise
    std::vector<std::optional<int>*> sessions_;
    std::mutex mutex_;  // for the tasks
    std::deque<Task> tasks_;
};

}  // namespace test_support

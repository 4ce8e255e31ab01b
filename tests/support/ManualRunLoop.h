#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/RunLoop.h"

namespace test_support {

/// A run loop whose time stands still until the test moves it. A modal session moves it too, from
/// timer to timer. What would never end (a session that nothing can stop, tasks that post
/// themselves for ever) throws std::logic_error.
class ManualRunLoop final : public platform::RunLoop {
 public:
    explicit ManualRunLoop(TimePoint start = TimePoint(std::chrono::seconds(1'700'000'000)));
    ~ManualRunLoop() override;

    void post(Task task) override;
    [[nodiscard]] std::unique_ptr<Timer> after(std::chrono::milliseconds delay, Task task) override;
    /// An interval is at least a millisecond.
    [[nodiscard]] std::unique_ptr<Timer> every(std::chrono::milliseconds interval,
                                               Task task) override;
    int runModal() override;
    void stopModal(int code) override;
    void processPending() override { advance(std::chrono::milliseconds::zero()); }
    [[nodiscard]] TimePoint now() const override { return now_; }

    /// Runs what is posted and then every timer that falls due, each at its own time, and what
    /// these post.
    void advance(std::chrono::milliseconds duration);
    /// Waits until another thread has posted, then runs it; false when none does for ten seconds.
    [[nodiscard]] bool waitForPost();
    /// Timers whose handle is alive and that will fire.
    [[nodiscard]] std::size_t timerCount() const;
    [[nodiscard]] std::size_t modalDepth() const { return sessions_.size(); }

 private:
    struct Alarm;
    struct Handle;
    using Alarms = std::vector<std::shared_ptr<Alarm>>;

    std::unique_ptr<Timer> add(std::chrono::milliseconds delay, bool repeats, Task task);
    [[nodiscard]] std::shared_ptr<Alarm> nextAlarm() const;
    void fire(const std::shared_ptr<Alarm>& alarm);
    /// One posted task, or one timer that is due by `limit`; false when there is neither.
    bool runOne(TimePoint limit);
    bool runPosted();

    TimePoint now_;
    Alarms alarms_;
    std::vector<std::optional<int>*> sessions_;
    std::mutex mutex_;
    std::condition_variable posted_;
    std::deque<Task> tasks_;
};

}  // namespace test_support

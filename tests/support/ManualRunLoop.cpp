#include "support/ManualRunLoop.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace test_support {

namespace {

using std::chrono::milliseconds;

constexpr int mostSteps = 100'000;

}  // namespace

struct ManualRunLoop::Alarm {
    TimePoint due;
    milliseconds interval;
    bool repeats = false;
    bool finished = false;
    bool running = false;
    Task task;
};

struct ManualRunLoop::Handle final : Timer {
    explicit Handle(std::shared_ptr<Alarm> target) : alarm(std::move(target)) {}
    ~Handle() override {
        alarm->finished = true;
        if (!alarm->running) alarm->task = nullptr;
    }
    std::shared_ptr<Alarm> alarm;
};

ManualRunLoop::ManualRunLoop(TimePoint start) : now_(start) {}
ManualRunLoop::~ManualRunLoop() = default;

void ManualRunLoop::post(Task task) {
    {
        const std::lock_guard lock(mutex_);
        tasks_.push_back(std::move(task));
    }
    posted_.notify_one();
}

std::unique_ptr<platform::RunLoop::Timer> ManualRunLoop::after(milliseconds delay, Task task) {
    return add(std::max(delay, milliseconds::zero()), false, std::move(task));
}

std::unique_ptr<platform::RunLoop::Timer> ManualRunLoop::every(milliseconds interval, Task task) {
    return add(std::max(interval, milliseconds(1)), true, std::move(task));
}

std::unique_ptr<platform::RunLoop::Timer> ManualRunLoop::add(milliseconds delay, bool repeats,
                                                             Task task) {
    std::erase_if(alarms_, [](const auto& alarm) { return alarm->finished; });
    alarms_.push_back(std::make_shared<Alarm>(Alarm{
        .due = now_ + delay, .interval = delay, .repeats = repeats, .task = std::move(task)}));
    return std::make_unique<Handle>(alarms_.back());
}

int ManualRunLoop::runModal() {
    std::optional<int> code;
    sessions_.push_back(&code);
    for (int step = 0; !code; ++step) {
        if (step == mostSteps || !runOne(TimePoint::max())) {
            sessions_.pop_back();
            throw std::logic_error("a modal session that nothing stops");
        }
    }
    sessions_.pop_back();
    return *code;
}

void ManualRunLoop::stopModal(int code) {
    if (!sessions_.empty()) *sessions_.back() = code;
}

void ManualRunLoop::advance(milliseconds duration) {
    const TimePoint end = now_ + duration;
    for (int step = 0; runOne(end); ++step) {
        if (step == mostSteps) throw std::logic_error("tasks that never come to an end");
    }
    now_ = std::max(now_, end);
}

bool ManualRunLoop::waitForPost() {
    {
        std::unique_lock lock(mutex_);
        const bool arrived =
            posted_.wait_for(lock, std::chrono::seconds(10), [this] { return !tasks_.empty(); });
        if (!arrived) return false;
    }
    processPending();
    return true;
}

std::size_t ManualRunLoop::timerCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(alarms_, [](const auto& alarm) { return !alarm->finished; }));
}

std::shared_ptr<ManualRunLoop::Alarm> ManualRunLoop::nextAlarm() const {
    std::shared_ptr<Alarm> next;
    for (const auto& alarm : alarms_) {
        const bool ready = !alarm->finished && !alarm->running;
        if (ready && (!next || alarm->due < next->due)) next = alarm;
    }
    return next;
}

void ManualRunLoop::fire(const std::shared_ptr<Alarm>& alarm) {
    now_ = std::max(now_, alarm->due);
    alarm->due += alarm->interval;
    alarm->finished = !alarm->repeats;
    alarm->running = true;
    alarm->task();
    alarm->running = false;
    alarm->due = std::max(alarm->due, now_);  // what a modal session within it missed fires once
    if (alarm->finished) alarm->task = nullptr;
}

bool ManualRunLoop::runOne(TimePoint limit) {
    if (runPosted()) return true;
    const auto alarm = nextAlarm();
    if (!alarm || alarm->due > limit) return false;
    fire(alarm);
    return true;
}

bool ManualRunLoop::runPosted() {
    Task task;
    {
        const std::lock_guard lock(mutex_);
        if (tasks_.empty()) return false;
        task = std::move(tasks_.front());
        tasks_.pop_front();
    }
    task();
    return true;
}

}  // namespace test_support

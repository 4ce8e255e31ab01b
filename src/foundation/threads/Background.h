#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/RunLoop.h"

namespace quelm {

/// Does what may wait for a disk, a lock or a keychain. Main thread only.
class Background {
 public:
    using Work = std::function<void()>;

    virtual ~Background() = default;

    /// Does `work` elsewhere, one after the other in order, and then calls `done` on the main
    /// thread. Neither must throw; `work` shares nothing that changes meanwhile.
    virtual void perform(Work work, Work done) = 0;
};

/// On a thread of its own, which starts with the first work.
class BackgroundThread final : public Background {
 public:
    /// The run loop outlives it.
    explicit BackgroundThread(platform::RunLoop& runLoop);
    BackgroundThread(const BackgroundThread&) = delete;
    BackgroundThread& operator=(const BackgroundThread&) = delete;
    /// Finishes what was given to it; no `done` is called any more.
    ~BackgroundThread() override;

    void perform(Work work, Work done) override;
    /// Until nothing waits and nothing runs; false when the time runs out before.
    [[nodiscard]] bool waitUntilIdle(std::chrono::milliseconds limit);

 private:
    struct Job {
        Work work;
        Work done;
    };
    /// Outlives this while a `done` is under way.
    struct Life {
        bool ended = false;
    };

    void run();

    platform::RunLoop& runLoop_;
    std::shared_ptr<Life> life_ = std::make_shared<Life>();
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> jobs_;
    bool isRunning_ = false;
    bool isEnding_ = false;
    std::thread thread_;
};

/// At once, in `perform`: for programs without windows.
class Foreground final : public Background {
 public:
    void perform(Work work, Work done) override {
        work();
        if (done) done();
    }
};

}  // namespace quelm

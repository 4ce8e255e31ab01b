#include "foundation/threads/Background.h"

#include <utility>

namespace quelm {

BackgroundThread::BackgroundThread(platform::RunLoop& runLoop) : runLoop_(runLoop) {}

BackgroundThread::~BackgroundThread() {
    life_->ended = true;
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
        changed_.notify_all();
    }
    if (thread_.joinable()) thread_.join();
}

void BackgroundThread::perform(Work work, Work done) {
    const std::lock_guard lock(mutex_);
    jobs_.push_back({std::move(work), std::move(done)});
    if (!thread_.joinable()) thread_ = std::thread(&BackgroundThread::run, this);
    changed_.notify_all();
}

bool BackgroundThread::waitUntilIdle(std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, limit, [this] { return jobs_.empty() && !isRunning_; });
}

void BackgroundThread::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return !jobs_.empty() || isEnding_; });
        if (jobs_.empty()) return;
        Job job = std::move(jobs_.front());
        jobs_.pop_front();
        isRunning_ = true;
        lock.unlock();
        job.work();
        job.work = nullptr;
        if (job.done) {
            runLoop_.post([life = life_, done = std::move(job.done)] {
                if (!life->ended) done();
            });
        }
        lock.lock();
        isRunning_ = false;
        changed_.notify_all();
    }
}

}  // namespace quelm

#include "foundation/threads/SerialWorker.h"

#include <utility>

namespace quelm {

SerialWorker::~SerialWorker() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
        changed_.notify_all();
    }
    if (thread_.joinable()) thread_.join();
}

void SerialWorker::replaceWaiting(Task task) {
    const std::lock_guard lock(mutex_);
    waiting_ = std::move(task);
    if (!thread_.joinable()) thread_ = std::thread(&SerialWorker::run, this);
    changed_.notify_all();
}

void SerialWorker::wait() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !waiting_ && !isRunning_; });
}

void SerialWorker::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return waiting_ || isEnding_; });
        if (!waiting_) return;
        const Task task = *std::exchange(waiting_, std::nullopt);
        isRunning_ = true;
        lock.unlock();
        task();
        lock.lock();
        isRunning_ = false;
        changed_.notify_all();
    }
}

}  // namespace quelm

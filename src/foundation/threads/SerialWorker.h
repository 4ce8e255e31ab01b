#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace quelm {

/// A thread that does one task after the other, of which at most one waits. It starts with the
/// first task; its end does what waits. Tasks must not throw.
class SerialWorker {
 public:
    using Task = std::function<void()>;

    SerialWorker() = default;
    SerialWorker(const SerialWorker&) = delete;
    SerialWorker& operator=(const SerialWorker&) = delete;
    ~SerialWorker();

    /// Takes the place of the task that waits, if one does. Any thread.
    void replaceWaiting(Task task);
    /// Until nothing waits and nothing runs. Any other thread.
    void wait();

 private:
    void run();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::optional<Task> waiting_;
    bool isRunning_ = false;
    bool isEnding_ = false;
    std::thread thread_;
};

}  // namespace quelm

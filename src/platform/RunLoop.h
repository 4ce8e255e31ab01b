#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace platform {

/// The main thread's event loop. All but `post` is called on the main thread, and every task and
/// timer runs there, also while a modal session runs. A task must not throw.
class RunLoop {
 public:
    using Task = std::function<void()>;
    using TimePoint = std::chrono::system_clock::time_point;

    /// Destroying the handle cancels the timer, also from within its own task.
    class Timer {
     public:
        virtual ~Timer() = default;
    };

    virtual ~RunLoop() = default;

    /// Any thread. Tasks run in the order in which they were posted.
    virtual void post(Task task) = 0;
    [[nodiscard]] virtual std::unique_ptr<Timer> after(std::chrono::milliseconds delay,
                                                       Task task) = 0;
    [[nodiscard]] virtual std::unique_ptr<Timer> every(std::chrono::milliseconds interval,
                                                       Task task) = 0;

    /// Ends with its destruction, also from within its own task.
    class Watch {
     public:
        virtual ~Watch() = default;
    };
    /// Runs the task whenever the descriptor, which outlives the handle, has something to read.
    [[nodiscard]] virtual std::unique_ptr<Watch> watch(int descriptor, Task readable) = 0;

    /// Runs the loop until `stopModal` and answers its code. Sessions nest; the innermost stops.
    virtual int runModal() = 0;
    /// Without a running session nothing happens.
    virtual void stopModal(int code) = 0;
    /// Runs what is due now and returns without waiting.
    virtual void processPending() = 0;
    [[nodiscard]] virtual TimePoint now() const = 0;
};

}  // namespace platform

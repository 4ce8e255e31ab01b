#pragma once

#include <functional>
#include <utility>

namespace quelm {

/// Something that takes its time and is asked for again and again: one run goes on at a time, and
/// however often it is asked for meanwhile, one more follows. Main thread only.
class OneAtATime {
 public:
    /// `start` begins a run; its end calls `finished`, perhaps at once.
    explicit OneAtATime(std::function<void()> start) : start_(std::move(start)) {}
    OneAtATime(const OneAtATime&) = delete;
    OneAtATime& operator=(const OneAtATime&) = delete;

    void ask() {
        isAsked_ = true;
        if (!isRunning_) run();
    }
    void finished() {
        isRunning_ = false;
        if (isAsked_) run();
    }

 private:
    void run() {
        isAsked_ = false;
        isRunning_ = true;
        start_();
    }

    std::function<void()> start_;
    bool isAsked_ = false;
    bool isRunning_ = false;
};

}  // namespace quelm

#pragma once

#include "support/ManualRunLoop.h"

namespace test_support {

/// A manual loop as one that the services own.
class ForwardedRunLoop final : public platform::RunLoop {
 public:
    explicit ForwardedRunLoop(ManualRunLoop& loop) : loop_(loop) {}
    void post(Task task) override { loop_.post(std::move(task)); }
    std::unique_ptr<Timer> after(std::chrono::milliseconds delay, Task task) override {
        return loop_.after(delay, std::move(task));
    }
    std::unique_ptr<Timer> every(std::chrono::milliseconds interval, Task task) override {
        return loop_.every(interval, std::move(task));
    }
    std::unique_ptr<Watch> watch(int descriptor, Task readable) override {
        return loop_.watch(descriptor, std::move(readable));
    }
    int runModal() override { return loop_.runModal(); }
    void stopModal(int code) override { loop_.stopModal(code); }
    void processPending() override { loop_.processPending(); }
    [[nodiscard]] TimePoint now() const override { return loop_.now(); }

 private:
    ManualRunLoop& loop_;
};

}  // namespace test_support

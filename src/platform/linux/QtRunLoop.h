#pragma once

#include <memory>

#include "platform/RunLoop.h"

namespace platform {

/// The event loop of Qt Core; made on the main thread while an application object exists. What has
/// not run when it is destroyed never runs. A delay is at most 24 days, the toolkit's longest.
class QtRunLoop final : public RunLoop {
 public:
    QtRunLoop();
    ~QtRunLoop() override;

    void post(Task task) override;
    [[nodiscard]] std::unique_ptr<Timer> after(std::chrono::milliseconds delay, Task task) override;
    [[nodiscard]] std::unique_ptr<Timer> every(std::chrono::milliseconds interval,
                                               Task task) override;
    [[nodiscard]] std::unique_ptr<Watch> watch(int descriptor, Task readable) override;
    int runModal() override;
    void stopModal(int code) override;
    void processPending() override;
    [[nodiscard]] TimePoint now() const override;

 private:
    struct Core;
    std::unique_ptr<Core> core_;
};

}  // namespace platform

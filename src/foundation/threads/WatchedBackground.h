#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

#include "foundation/threads/Background.h"

namespace quelm {

/// Another's work, watched: tells when it takes long, because somebody holds a lock as a rule, and
/// when nothing is overdue any more. Main thread only.
class WatchedBackground final : public Background {
 public:
    using Told = std::function<void(bool isSlow)>;
    /// Longer than this and the person should know what is waited for.
    static constexpr std::chrono::milliseconds patience{1'000};

    /// Both outlive it.
    WatchedBackground(Background& background, platform::RunLoop& runLoop)
        : background_(background), runLoop_(runLoop) {}

    /// Replaces who is told; empty for nobody.
    void setTold(Told told) { told_ = std::move(told); }
    void perform(Work work, Work done) override;

 private:
    void startTimer();
    void finished();

    Background& background_;
    platform::RunLoop& runLoop_;
    Told told_;
    std::size_t running_ = 0;
    bool isSlow_ = false;
    std::unique_ptr<platform::RunLoop::Timer> timer_;
};

}  // namespace quelm

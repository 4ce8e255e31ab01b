#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <chrono>
#include <vector>

#include "qt/binding/Binding.h"

namespace orv {

/// Applies the bindings that are due together, at most once a frame: however often a value changes,
/// it is drawn once. One a process, made after the application object. Main thread only.
class FrameUpdates final {
 public:
    static constexpr std::chrono::milliseconds frame{16};

    FrameUpdates();
    FrameUpdates(const FrameUpdates&) = delete;
    FrameUpdates& operator=(const FrameUpdates&) = delete;

    /// Applies what is due now, and what becomes due thereby.
    void flush();

 private:
    friend class Binding;

    void add(Binding& binding);
    void remove(const Binding& binding);
    void schedule();
    void applyBatch();

    std::vector<Binding*> due_;
    /// What is just being applied; null for those that went meanwhile.
    std::vector<Binding*> batch_;
    QTimer timer_;
    QElapsedTimer sinceLast_;
    bool isApplying_ = false;
};

inline void Binding::mark() {
    if (!isDue_) updates_->add(*this);
}

}  // namespace orv

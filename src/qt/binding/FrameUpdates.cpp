#include "qt/binding/FrameUpdates.h"

#include <algorithm>

namespace orv {

Binding::~Binding() {
    updates_->remove(*this);
}

FrameUpdates::FrameUpdates() {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.callOnTimeout([this] { flush(); });
}

void FrameUpdates::add(Binding& binding) {
    binding.isDue_ = true;
    due_.push_back(&binding);
    if (due_.size() == 1 && !isApplying_) schedule();
}

void FrameUpdates::remove(const Binding& binding) {
    if (binding.isDue_) std::erase(due_, &binding);
    if (isApplying_) std::ranges::replace(batch_, &binding, nullptr);
}

void FrameUpdates::schedule() {
    using std::chrono::milliseconds;
    const milliseconds passed(sinceLast_.isValid() ? sinceLast_.elapsed() : frame.count());
    timer_.start(std::max(frame - passed, milliseconds(0)));
}

void FrameUpdates::flush() {
    // a binding may make another one due; two that go on for ever wait for the next frame
    constexpr int mostRounds = 4;
    if (isApplying_) return;
    timer_.stop();
    isApplying_ = true;
    for (int round = 0; round < mostRounds && !due_.empty(); ++round)
        applyBatch();
    isApplying_ = false;
    sinceLast_.start();
    if (!due_.empty()) schedule();
}

void FrameUpdates::applyBatch() {
    batch_.swap(due_);
    for (Binding* binding : batch_)
        binding->isDue_ = false;
    for (std::size_t i = 0; i < batch_.size(); ++i)
        if (batch_[i]) batch_[i]->apply();
    batch_.clear();
}

}  // namespace orv

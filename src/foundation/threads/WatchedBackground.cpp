#include "foundation/threads/WatchedBackground.h"

namespace quelm {

void WatchedBackground::perform(Work work, Work done) {
    if (running_++ == 0) startTimer();
    background_.perform(std::move(work), [this, done = std::move(done)] {
        finished();
        if (done) done();
    });
}

void WatchedBackground::startTimer() {
    timer_ = runLoop_.after(patience, [this] {
        isSlow_ = true;
        if (told_) told_(true);
    });
}

/// What still runs has its time from now on.
void WatchedBackground::finished() {
    timer_.reset();
    if (std::exchange(isSlow_, false) && told_) told_(false);
    if (--running_ > 0) startTimer();
}

}  // namespace quelm

#include "foundation/threads/Condition.h"

namespace quelm {

CCondition::CCondition() {
    pthread_cond_init(&condition_, nullptr);
}
CCondition::~CCondition() {
    pthread_cond_destroy(&condition_);
}

int CCondition::Wait(CMutex& mutex) {
    return pthread_cond_wait(&condition_, &mutex.mutex_);
}
int CCondition::WaitFor(CMutex& mutex, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now().time_since_epoch() + limit;
    const auto seconds = std::chrono::floor<std::chrono::seconds>(end);
    const timespec time{seconds.count(), std::chrono::nanoseconds(end - seconds).count()};
    return pthread_cond_clockwait(&condition_, &mutex.mutex_, CLOCK_MONOTONIC, &time);
}
void CCondition::Signal() {
    pthread_cond_signal(&condition_);
}
void CCondition::Broadcast() {
    pthread_cond_broadcast(&condition_);
}

}  // namespace quelm

#pragma once

#include <chrono>
#include <pthread.h>

#include "foundation/threads/Mutex.h"

namespace quelm {

class CCondition {
 public:
    CCondition();
    CCondition(const CCondition&) = delete;
    CCondition& operator=(const CCondition&) = delete;
    ~CCondition();

    /// The calling thread holds the mutex, once; it is released during the wait. Can return without
    /// a signal. 0 or the POSIX error.
    int Wait(CMutex& mutex);
    /// The same for at most so long; ETIMEDOUT when nothing came.
    int WaitFor(CMutex& mutex, std::chrono::milliseconds limit);
    /// Wakes one waiter.
    void Signal();
    /// Wakes every waiter.
    void Broadcast();

 private:
    pthread_cond_t condition_;
};

}  // namespace quelm

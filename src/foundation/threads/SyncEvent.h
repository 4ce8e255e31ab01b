#pragma once

#include "foundation/threads/Condition.h"
#include "foundation/threads/Mutex.h"

namespace quelm {

/// An event that stays set once it is set. Any thread; a waiter that returned may destroy it, even
/// while Set() is still returning.
class CSyncEvent {
 public:
    explicit CSyncEvent(bool initial) : signalled_(initial) {}

    void Set();
    /// Returns when the event is set: 0, or the POSIX error of the wait.
    int Wait();

 private:
    bool signalled_;
    CCondition condition_;
    CMutex mutex_{CMutex::EMutexType::Recursive};
};

}  // namespace quelm

#pragma once

#include <pthread.h>

#include "foundation/threads/SyncEvent.h"

namespace quelm {

/// Starts a thread that needs no join and outlives this object.
class CDetachedThread {
 public:
    using ThreadFunction = void (*)(void* argument);

    CDetachedThread(ThreadFunction function, void* argument)
        : function_(function), argument_(argument) {}

    /// Once only. Returns after the thread has begun, and this object may then be destroyed; what
    /// the function throws ends its thread quietly. 0, or the POSIX error when no thread could be
    /// made.
    [[nodiscard]] int Run();

 private:
    static void* ThreadStarter(void* thread);

    ThreadFunction function_;
    void* argument_;
    pthread_t handle_{};
    CSyncEvent started_{false};
};

}  // namespace quelm

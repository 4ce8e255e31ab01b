#include "foundation/threads/SyncEvent.h"

namespace quelm {

void CSyncEvent::Set() {
    const CLockIt lock(mutex_);
    signalled_ = true;
    // under the lock: the last access to the event is the unlock
    condition_.Broadcast();
}

int CSyncEvent::Wait() {
    const CLockIt lock(mutex_);
    int error = 0;
    while (!signalled_ && error == 0)
        error = condition_.Wait(mutex_);
    return error;
}

}  // namespace quelm

#include "foundation/threads/DetachedThread.h"

#include <cxxabi.h>

namespace quelm {

int CDetachedThread::Run() {
    if (const int error = pthread_create(&handle_, nullptr, &ThreadStarter, this)) return error;
    pthread_detach(handle_);
    started_.Wait();
    return 0;
}

namespace {

// the unwinding is caught by a reference to nothing, which the sanitizer takes for a mistake
__attribute__((no_sanitize("undefined"))) void callQuietly(CDetachedThread::ThreadFunction function,
                                                           void* argument) {
    try {
        function(argument);
    } catch (abi::__forced_unwind&) {
        // the thread was cancelled or called pthread_exit: the C library insists on going on
        throw;
    } catch (...) {
    }
}

}  // namespace

void* CDetachedThread::ThreadStarter(void* thread) {
    auto* self = static_cast<CDetachedThread*>(thread);
    const ThreadFunction function = self->function_;
    void* const argument = self->argument_;
    self->started_.Set();
    // the object may be gone from here on
    callQuietly(function, argument);
    return nullptr;
}

}  // namespace quelm

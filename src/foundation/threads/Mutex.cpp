#include "foundation/threads/Mutex.h"

namespace quelm {

namespace {

/// The kinds are numbered differently from system to system.
int posixKind(CMutex::EMutexType type) {
    switch (type) {
        case CMutex::EMutexType::Normal:
            return PTHREAD_MUTEX_NORMAL;
        case CMutex::EMutexType::ErrorChecking:
            return PTHREAD_MUTEX_ERRORCHECK;
        case CMutex::EMutexType::Recursive:
            return PTHREAD_MUTEX_RECURSIVE;
    }
    return PTHREAD_MUTEX_DEFAULT;
}

}  // namespace

CMutex::CMutex(EMutexType type) {
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, posixKind(type));
    pthread_mutex_init(&mutex_, &attributes);
    pthread_mutexattr_destroy(&attributes);
}

CMutex::~CMutex() {
    pthread_mutex_destroy(&mutex_);
}

int CMutex::Lock() {
    return pthread_mutex_lock(&mutex_);
}
int CMutex::Unlock() {
    return pthread_mutex_unlock(&mutex_);
}

}  // namespace quelm

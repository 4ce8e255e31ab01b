#pragma once

#include <pthread.h>

namespace quelm {

class CMutex {
 public:
    enum class EMutexType { Normal = 0, ErrorChecking = 1, Recursive = 2 };

    explicit CMutex(EMutexType type);
    CMutex(const CMutex&) = delete;
    CMutex& operator=(const CMutex&) = delete;
    ~CMutex();

    // Each answers the POSIX error, which only an error-checking mutex has a use for; 0 when done.
    int Lock();
    int Unlock();

 private:
    friend class CCondition;

    pthread_mutex_t mutex_;
};

/// Holds a mutex locked while it lives.
class [[nodiscard]] CLockIt {
 public:
    explicit CLockIt(CMutex& mutex) : mutex_(&mutex) { mutex_->Lock(); }
    CLockIt(const CLockIt&) = delete;
    CLockIt& operator=(const CLockIt&) = delete;
    ~CLockIt() { mutex_->Unlock(); }

 private:
    CMutex* mutex_;
};

}  // namespace quelm

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
void CCondition::Signal() {
    pthread_cond_signal(&condition_);
}
void CCondition::Broadcast() {
    pthread_cond_broadcast(&condition_);
}

}  // namespace quelm

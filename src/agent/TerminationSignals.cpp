#include "agent/TerminationSignals.h"

#include <csignal>
#include <pthread.h>
#include <utility>

namespace orv {

namespace {

sigset_t terminationSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signals, number);
    return signals;
}

}  // namespace

TerminationSignals::TerminationSignals(std::function<void()> requested) {
    const sigset_t signals = terminationSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    thread_ = std::thread([signals, call = std::move(requested)] {
        int number = 0;
        if (sigwait(&signals, &number) == 0) call();
    });
}

TerminationSignals::~TerminationSignals() {
    // it is blocked and only ends the thread's wait
    // NOLINTNEXTLINE(bugprone-bad-signal-to-kill-thread)
    pthread_kill(thread_.native_handle(), SIGTERM);
    thread_.join();
}

}  // namespace orv

#include "support/web/HttpWorker.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <openssl/crypto.h>
#include <thread>
#include <utility>

#include "foundation/threads/DetachedThread.h"

namespace orv {

namespace {

std::atomic<int> running = 0;

class WaitAtEnd {
 public:
    /// The end comes in the opposite order: the encryption library has to begin before this.
    WaitAtEnd() { ::OPENSSL_init_crypto(OPENSSL_INIT_LOAD_CRYPTO_STRINGS, nullptr); }
    WaitAtEnd(const WaitAtEnd&) = delete;
    WaitAtEnd& operator=(const WaitAtEnd&) = delete;
    ~WaitAtEnd() {
        using namespace std::chrono_literals;
        for (auto waited = 0ms; running > 0 && waited < 1s; waited += 5ms) {
            std::this_thread::sleep_for(5ms);
        }
    }
};

using Task = std::function<void()>;

void run(void* argument) {
    std::unique_ptr<Task> task(static_cast<Task*>(argument));
    (*task)();
    task.reset();
    --running;
}

}  // namespace

bool StartHttpWorker(std::function<void()> task) {
    static const WaitAtEnd waitAtEnd;
    auto held = std::make_unique<Task>(std::move(task));
    quelm::CDetachedThread thread(&run, held.get());
    ++running;
    if (thread.Run() != 0) {
        --running;
        return false;
    }
    static_cast<void>(held.release());  // the thread's from now on
    return true;
}

}  // namespace orv

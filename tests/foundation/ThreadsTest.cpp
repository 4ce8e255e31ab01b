#include <cerrno>
#include <gtest/gtest.h>
#include <optional>
#include <pthread.h>
#include <thread>
#include <vector>

#include "foundation/threads/DetachedThread.h"
#include "foundation/threads/SyncEvent.h"

namespace {

using namespace quelm;
using enum CMutex::EMutexType;

TEST(Mutex, KeepsOtherThreadsOutAndItsKindDecidesOnItsOwner) {
    for (const auto type : {Normal, ErrorChecking, Recursive}) {
        CMutex mutex(type);
        int count = 0;
        const auto countUp = [&] {
            for (int i = 0; i < 2000; ++i) {
                const CLockIt lock(mutex);
                ++count;
            }
        };
        std::thread other(countUp);
        countUp();
        other.join();
        EXPECT_EQ(count, 4000);
        if (type == Normal) continue;
        const CLockIt lock(mutex);
        EXPECT_EQ(mutex.Lock(), type == Recursive ? 0 : EDEADLK);
        if (type == Recursive) mutex.Unlock();
    }
}

TEST(SyncEvent, WakesEveryWaiterShowsWhatWasDoneBeforeAndStaysSet) {
    CSyncEvent event(false);
    int prepared = 0;
    std::vector<int> seen(4);
    std::vector<std::jthread> waiters;
    for (int& place : seen) {
        waiters.emplace_back([&] {
            event.Wait();
            place = prepared;
        });
    }
    prepared = 7;
    event.Set();
    waiters.clear();
    EXPECT_EQ(seen, std::vector<int>(4, 7));
    event.Set();
    EXPECT_EQ(event.Wait(), 0);
    EXPECT_EQ(CSyncEvent(true).Wait(), 0);
}

TEST(DetachedThread, OutlivesItsObjectAndEndsQuietlyHoweverItsFunctionEnds) {
    struct Task {
        CDetachedThread::ThreadFunction ending;
        CSyncEvent ended{false};
    };
    struct AtThreadEnd {
        CSyncEvent* event;
        ~AtThreadEnd() { event->Set(); }
    };
    const auto run = [](void* argument) {
        auto& task = *static_cast<Task*>(argument);
        thread_local const AtThreadEnd atThreadEnd{&task.ended};
        task.ending(nullptr);
    };
    const CDetachedThread::ThreadFunction endings[] = {
        [](void*) {}, [](void*) { throw 1; },
        [](void*) { pthread_exit(nullptr); }};  // unwinds by force, which must not be swallowed
    for (int i = 0; i < 200; ++i) {
        Task task{endings[i % 3]};
        std::optional<CDetachedThread> thread(std::in_place, run, &task);
        ASSERT_EQ(thread->Run(), 0);
        thread.emplace(nullptr, nullptr);  // destroys it and overwrites what it was
        ASSERT_EQ(task.ended.Wait(), 0);
    }
}

TEST(DetachedThread, SaysWhyNoThreadCouldBeMade) {
    pthread_attr_t usual, enormous;
    ASSERT_EQ(pthread_getattr_default_np(&usual) + pthread_attr_init(&enormous), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&enormous, std::size_t{1} << 50U), 0);
    ASSERT_EQ(pthread_setattr_default_np(&enormous), 0);
    EXPECT_EQ(CDetachedThread(nullptr, nullptr).Run(), EAGAIN);
    EXPECT_EQ(pthread_setattr_default_np(&usual), 0);
}

}  // namespace

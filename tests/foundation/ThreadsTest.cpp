#include <cerrno>
#include <deque>
#include <gtest/gtest.h>
#include <pthread.h>
#include <stdexcept>
#include <thread>
#include <vector>

#include "foundation/threads/DetachedThread.h"
#include "foundation/threads/SyncEvent.h"

namespace quelm {

namespace {

using EMutexType = CMutex::EMutexType;

TEST(Mutex, TheKindDecidesWhatASecondLockByTheOwnerDoes) {
    CMutex recursive(EMutexType::Recursive);
    EXPECT_EQ(recursive.Lock(), 0);
    EXPECT_EQ(recursive.Lock(), 0);
    EXPECT_EQ(recursive.Unlock(), 0);
    EXPECT_EQ(recursive.Unlock(), 0);

    CMutex checking(EMutexType::ErrorChecking);
    EXPECT_EQ(checking.Lock(), 0);
    EXPECT_EQ(checking.Lock(), EDEADLK);
    EXPECT_EQ(checking.Unlock(), 0);
}

TEST(Mutex, EveryKindKeepsOtherThreadsOut) {
    for (const auto type : {EMutexType::Normal, EMutexType::ErrorChecking, EMutexType::Recursive}) {
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
    }
}

TEST(Condition, ASignalHandsEachItemToOneOfTheWaiters) {
    CMutex mutex(EMutexType::Normal);
    CCondition added;
    std::deque<int> queue;
    int sum = 0;
    const auto takeUntilNegative = [&] {
        const CLockIt lock(mutex);
        while (true) {
            while (queue.empty())
                added.Wait(mutex);
            const int item = queue.front();
            queue.pop_front();
            if (item < 0) return;
            sum += item;
        }
    };
    std::vector<std::thread> takers;
    for (int i = 0; i < 3; ++i)
        takers.emplace_back(takeUntilNegative);
    for (const int item : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, -1, -1, -1}) {
        const CLockIt lock(mutex);
        queue.push_back(item);
        added.Signal();
    }
    for (auto& taker : takers)
        taker.join();
    EXPECT_EQ(sum, 55);
}

TEST(SyncEvent, OnceSetItStaysSet) {
    CSyncEvent created(true);
    EXPECT_EQ(created.Wait(), 0);

    CSyncEvent event(false);
    event.Set();
    event.Set();
    EXPECT_EQ(event.Wait(), 0);
    EXPECT_EQ(event.Wait(), 0);
}

TEST(SyncEvent, SettingWakesEveryWaiterAndShowsWhatWasDoneBefore) {
    CSyncEvent event(false);
    int prepared = 0;
    std::vector<int> seen(4);
    std::vector<std::thread> waiters;
    for (int& place : seen) {
        waiters.emplace_back([&] {
            event.Wait();
            place = prepared;
        });
    }
    prepared = 7;
    event.Set();
    for (auto& waiter : waiters)
        waiter.join();
    EXPECT_EQ(seen, std::vector<int>(4, 7));
}

TEST(DetachedThread, TheObjectMayGoAsSoonAsItRuns) {
    struct Task {
        CSyncEvent done{false};
        std::thread::id thread;
    };
    for (int i = 0; i < 200; ++i) {
        Task task;
        {
            CDetachedThread thread(
                [](void* argument) {
                    auto& own = *static_cast<Task*>(argument);
                    own.thread = std::this_thread::get_id();
                    own.done.Set();
                },
                &task);
            ASSERT_EQ(thread.Run(), 0);
        }
        ASSERT_EQ(task.done.Wait(), 0);
        ASSERT_NE(task.thread, std::this_thread::get_id());
    }
}

/// Sets the event when the thread that armed it has ended its function.
struct AtThreadEnd {
    CSyncEvent* event = nullptr;
    ~AtThreadEnd() {
        if (event != nullptr) event->Set();
    }
};
thread_local AtThreadEnd atThreadEnd;

TEST(DetachedThread, EndsQuietlyHoweverItsFunctionEnds) {
    const CDetachedThread::ThreadFunction endings[] = {
        [](void*) { throw std::runtime_error("unheard"); },
        [](void*) { throw 1; },
        // unwinds by force, which must not be swallowed
        [](void*) { pthread_exit(nullptr); },
    };
    struct Task {
        CDetachedThread::ThreadFunction ending;
        CSyncEvent ended{false};
    };
    for (const auto ending : endings) {
        Task task{ending};
        CDetachedThread thread(
            [](void* argument) {
                auto& own = *static_cast<Task*>(argument);
                atThreadEnd.event = &own.ended;
                own.ending(nullptr);
            },
            &task);
        ASSERT_EQ(thread.Run(), 0);
        EXPECT_EQ(task.ended.Wait(), 0);
    }
}

TEST(DetachedThread, SaysWhyNoThreadCouldBeMade) {
    pthread_attr_t usual;
    ASSERT_EQ(pthread_getattr_default_np(&usual), 0);
    pthread_attr_t enormous;
    ASSERT_EQ(pthread_attr_init(&enormous), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&enormous, std::size_t{1} << 50U), 0);
    ASSERT_EQ(pthread_setattr_default_np(&enormous), 0);

    bool ran = false;
    CDetachedThread thread([](void* argument) { *static_cast<bool*>(argument) = true; }, &ran);
    EXPECT_EQ(thread.Run(), EAGAIN);
    EXPECT_FALSE(ran);

    EXPECT_EQ(pthread_setattr_default_np(&usual), 0);
    pthread_attr_destroy(&enormous);
    pthread_attr_destroy(&usual);
}

}  // namespace

}  // namespace quelm

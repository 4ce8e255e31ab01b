#include <QCoreApplication>
#include <QDeadlineTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/QtRunLoop.h"
#include "support/ManualRunLoop.h"

namespace {

using namespace std::chrono_literals;
using platform::QtRunLoop;
using platform::RunLoop;
using test_support::ManualRunLoop;

struct ManualHost {
    std::unique_ptr<RunLoop> loop = std::make_unique<ManualRunLoop>();

    void runUntil(const std::function<bool()>& done) const {
        for (int step = 0; step < 1000 && !done(); ++step) {
            if (loop) static_cast<ManualRunLoop&>(*loop).advance(1ms);
        }
    }
};

QCoreApplication& application() {
    static int count = 1;
    static char name[] = "test";
    static char* arguments[] = {name, nullptr};
    static QCoreApplication instance(count, arguments);
    return instance;
}

struct QtHost {
    QCoreApplication& application_ = application();
    std::unique_ptr<RunLoop> loop = std::make_unique<QtRunLoop>();

    void runUntil(const std::function<bool()>& done) const {
        const QDeadlineTimer limit(10s);
        while (!done() && !limit.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        }
    }
};

template <typename Host>
class ARunLoop : public testing::Test {
 protected:
    RunLoop& loop() { return *host_.loop; }
    /// Runs the loop until as many notes were taken.
    void runUntilNotes(std::size_t count) {
        host_.runUntil([&] { return notes_.size() >= count; });
    }
    RunLoop::Task note(std::string text) {
        return [this, text = std::move(text)] { notes_.push_back(text); };
    }

    using Notes = std::vector<std::string>;

    Host host_;
    Notes notes_;
};

using Hosts = testing::Types<ManualHost, QtHost>;
TYPED_TEST_SUITE(ARunLoop, Hosts);

TYPED_TEST(ARunLoop, RunsTasksOnItsThreadInTheOrderPosted) {
    const auto mainThread = std::this_thread::get_id();
    std::thread worker([&] {
        for (int i = 0; i < 100; ++i) {
            this->loop().post([this, i, mainThread] {
                const bool here = std::this_thread::get_id() == mainThread;
                this->notes_.push_back(here ? std::to_string(i) : "on another thread");
            });
        }
    });
    worker.join();
    EXPECT_TRUE(this->notes_.empty()) << "nothing runs before the loop does";
    this->runUntilNotes(100);
    ASSERT_EQ(this->notes_.size(), 100U);
    for (std::size_t i = 0; i < 100; ++i)
        EXPECT_EQ(this->notes_[i], std::to_string(i));
}

TYPED_TEST(ARunLoop, FiresATimerOnceOrUntilItsHandleGoes) {
    const auto once = this->loop().after(0ms, this->note("once"));
    std::unique_ptr<RunLoop::Timer> repeating;
    repeating = this->loop().every(1ms, [&] {
        this->notes_.push_back("again");
        if (this->notes_.size() == 4) repeating.reset();
    });
    this->runUntilNotes(4);
    const auto end = this->loop().after(5ms, this->note("end"));
    this->runUntilNotes(5);
    EXPECT_EQ(this->notes_,
              (typename TestFixture::Notes{"once", "again", "again", "again", "end"}));
}

TYPED_TEST(ARunLoop, ATimerMayCancelItselfAndStillUseWhatItCaptured) {
    std::unique_ptr<RunLoop::Timer> timer;
    const auto text = std::make_shared<std::string>("captured");
    timer = this->loop().after(0ms, [this, &timer, text] {
        timer.reset();
        this->notes_.push_back(*text);
    });
    this->runUntilNotes(1);
    EXPECT_EQ(this->notes_, typename TestFixture::Notes{"captured"});
    EXPECT_EQ(text.use_count(), 1) << "the task is gone with its timer";
}

TYPED_TEST(ARunLoop, ACancelledTimerDoesNotFireThoughDue) {
    auto cancelled = this->loop().after(0ms, this->note("cancelled"));
    const auto other = this->loop().after(1ms, this->note("other"));
    cancelled.reset();
    this->runUntilNotes(1);
    EXPECT_EQ(this->notes_, typename TestFixture::Notes{"other"});
}

TYPED_TEST(ARunLoop, WhatHasNotRunWhenItGoesNeverRuns) {
    this->loop().post(this->note("posted"));
    const auto outliving = this->loop().every(0ms, this->note("fired"));
    this->host_.loop.reset();
    int turns = 0;
    this->host_.runUntil([&] { return ++turns > 20; });
    EXPECT_TRUE(this->notes_.empty());
}

TYPED_TEST(ARunLoop, RunsTasksAndTimersInAModalSessionAndAnswersItsCode) {
    const auto timer = this->loop().after(1ms, [&] {
        this->notes_.push_back("timer");
        this->loop().stopModal(7);
    });
    this->loop().post(this->note("task"));
    EXPECT_EQ(this->loop().runModal(), 7);
    EXPECT_EQ(this->notes_, (typename TestFixture::Notes{"task", "timer"}));
}

TYPED_TEST(ARunLoop, StopsTheInnermostOfNestedSessions) {
    this->loop().post([&] {
        this->loop().post([&] { this->loop().stopModal(2); });
        const int inner = this->loop().runModal();
        this->notes_.push_back("inner " + std::to_string(inner));
        this->loop().stopModal(1);
    });
    EXPECT_EQ(this->loop().runModal(), 1);
    EXPECT_EQ(this->notes_, typename TestFixture::Notes{"inner 2"});
}

TYPED_TEST(ARunLoop, DoesNotFireATimerAgainWhileItsTaskRuns) {
    int depth = 0;
    const auto repeating = this->loop().every(1ms, [&] {
        this->notes_.push_back(depth++ == 0 ? "entered" : "entered twice");
        const auto stop = this->loop().after(5ms, [&] { this->loop().stopModal(0); });
        EXPECT_EQ(this->loop().runModal(), 0);
        --depth;
    });
    this->runUntilNotes(2);
    EXPECT_EQ(this->notes_, (typename TestFixture::Notes{"entered", "entered"}));
}

TYPED_TEST(ARunLoop, StoppingWithoutASessionLeavesTheNextOneRunning) {
    this->loop().stopModal(3);
    this->loop().post([&] { this->loop().stopModal(4); });
    EXPECT_EQ(this->loop().runModal(), 4);
}

TYPED_TEST(ARunLoop, ProcessPendingRunsWhatIsPostedAndReturns) {
    this->loop().post(this->note("posted"));
    const auto later = this->loop().after(std::chrono::hours(1), this->note("in an hour"));
    this->loop().processPending();
    this->loop().processPending();
    EXPECT_EQ(this->notes_, typename TestFixture::Notes{"posted"});
}

TEST(AQtRunLoop, TakesADelayBeyondTheToolkitsLongest) {
    QtHost host;
    bool fired = false;
    const auto timer =
        host.loop->after(std::chrono::milliseconds(1LL << 32U), [&] { fired = true; });
    int turns = 0;
    host.runUntil([&] { return ++turns > 20; });
    EXPECT_FALSE(fired);
}

TEST(AManualRunLoop, FiresTimersInTheOrderOfTheirTimesEachAtItsOwn) {
    ManualRunLoop loop;
    const auto start = loop.now();
    std::vector<std::pair<char, std::chrono::milliseconds>> fired;
    const auto record = [&](char name) {
        return [&, name] {
            fired.emplace_back(
                name, std::chrono::duration_cast<std::chrono::milliseconds>(loop.now() - start));
        };
    };
    const auto late = loop.after(30ms, record('c'));
    const auto repeating = loop.every(20ms, record('b'));
    const auto early = loop.after(10ms, record('a'));
    loop.advance(45ms);
    const std::vector<std::pair<char, std::chrono::milliseconds>> expected = {
        {'a', 10ms}, {'b', 20ms}, {'c', 30ms}, {'b', 40ms}};
    EXPECT_EQ(fired, expected);
    EXPECT_EQ(loop.now() - start, 45ms);
    EXPECT_EQ(loop.timerCount(), 1U);
}

TEST(AManualRunLoop, SaysSoWhenNothingCanStopASessionOrEndTheTasks) {
    ManualRunLoop loop;
    EXPECT_THROW(static_cast<void>(loop.runModal()), std::logic_error);
    const auto endless = loop.every(1ms, [] {});
    EXPECT_THROW(static_cast<void>(loop.runModal()), std::logic_error);
    std::function<void()> repost = [&] { loop.post(repost); };
    loop.post(repost);
    EXPECT_THROW(loop.processPending(), std::logic_error);
    EXPECT_EQ(loop.modalDepth(), 0U);
}

TEST(AManualRunLoop, WaitsForAnotherThreadsPost) {
    ManualRunLoop loop;
    bool ran = false;
    std::thread worker([&] { loop.post([&] { ran = true; }); });
    EXPECT_TRUE(loop.waitForPost());
    EXPECT_TRUE(ran);
    worker.join();
}

}  // namespace

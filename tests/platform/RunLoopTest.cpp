#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include "platform/linux/QtRunLoop.h"
#include "support/ManualRunLoop.h"

namespace {

using namespace std::chrono_literals;
using platform::QtRunLoop;
using platform::RunLoop;
using test_support::ManualRunLoop;
using Notes = std::vector<std::string>;

void turn(ManualRunLoop& loop) {
    loop.advance(1ms);
}
void turn(QtRunLoop&) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
}

/// What every run loop does. A test ends by an event; the deadline is for a loop that is broken.
template <typename Loop>
class ARunLoop : public testing::Test {
 protected:
    RunLoop::Task note(const std::string& text) {
        return [this, text] { notes_.push_back(text); };
    }
    RunLoop::Task stop(int code) {
        return [this, code] { loop_->stopModal(code); };
    }
    const Notes& notesAfter(std::size_t count) {
        const QDeadlineTimer limit(10s);
        while (notes_.size() < count && !limit.hasExpired())
            turn(*loop_);
        return notes_;
    }

    int count_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    QCoreApplication application_{count_, arguments_};
    std::unique_ptr<Loop> loop_ = std::make_unique<Loop>();
    Notes notes_;
};

using Loops = testing::Types<ManualRunLoop, QtRunLoop>;
TYPED_TEST_SUITE(ARunLoop, Loops);

TYPED_TEST(ARunLoop, RunsAnotherThreadsTasksOnItsOwnInTheOrderPosted) {
    Notes expected;
    std::thread::id ran;
    std::thread worker([&] {
        this->loop_->post([&] { ran = std::this_thread::get_id(); });
        for (int i = 0; i < 100; ++i)
            this->loop_->post(this->note(expected.emplace_back(std::to_string(i))));
    });
    worker.join();
    EXPECT_TRUE(this->notes_.empty()) << "nothing runs before the loop does";
    EXPECT_EQ(this->notesAfter(100), expected);
    EXPECT_EQ(ran, std::this_thread::get_id());
}

TYPED_TEST(ARunLoop, FiresATimerOnceOrUntilItsHandleGoes) {
    const auto once = this->loop_->after(0ms, this->note("once"));
    auto cancelled = this->loop_->after(0ms, this->note("cancelled though due"));
    cancelled.reset();
    std::unique_ptr<RunLoop::Timer> repeating;
    const auto text = std::make_shared<std::string>("again");
    repeating = this->loop_->every(1ms, [this, &repeating, text] {
        if (this->notes_.size() == 3) repeating.reset();
        this->notes_.push_back(*text);
    });
    this->notesAfter(4);
    EXPECT_EQ(text.use_count(), 1) << "the task is gone with its timer";
    const auto end = this->loop_->after(5ms, this->note("end"));
    EXPECT_EQ(this->notesAfter(5), (Notes{"once", "again", "again", "again", "end"}));
}

TYPED_TEST(ARunLoop, RunsTasksAndTimersInModalSessionsAndStopsTheInnermost) {
    this->loop_->stopModal(3);  // no session: the next one is not stopped by it
    std::unique_ptr<RunLoop::Timer> timer;
    this->loop_->post([&] {
        timer = this->loop_->after(1ms, this->stop(2));
        EXPECT_EQ(this->loop_->runModal(), 2);
        this->loop_->stopModal(1);
    });
    this->loop_->post(this->note("during both"));
    EXPECT_EQ(this->loop_->runModal(), 1);
    EXPECT_EQ(this->notes_, Notes{"during both"});
}

TYPED_TEST(ARunLoop, DoesNotFireATimerAgainWhileItsTaskRuns) {
    int depth = 0;
    const auto repeating = this->loop_->every(1ms, [&] {
        this->notes_.push_back(depth++ == 0 ? "entered" : "entered twice");
        const auto stop = this->loop_->after(5ms, this->stop(0));
        EXPECT_EQ(this->loop_->runModal(), 0);
        --depth;
    });
    EXPECT_EQ(this->notesAfter(2), (Notes{"entered", "entered"}));
}

TYPED_TEST(ARunLoop, TellsThatADescriptorCanBeReadUntilItsHandleGoes) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    std::unique_ptr<RunLoop::Watch> watch = this->loop_->watch(ends[0], [&] {
        char byte = 0;
        EXPECT_EQ(::read(ends[0], &byte, 1), 1);
        this->notes_.emplace_back(1, byte);
        if (byte == 'b') watch.reset();
    });
    this->loop_->processPending();
    ASSERT_EQ(::write(ends[1], "abc", 3), 3);
    EXPECT_EQ(this->notesAfter(2), (Notes{"a", "b"})) << "again while something is left";
    this->loop_->processPending();
    EXPECT_EQ(this->notes_.size(), 2U);
    for (const int end : ends)
        ::close(end);
}

TYPED_TEST(ARunLoop, RunsWhatIsDueAtOnceAndNothingOnceItIsGone) {
    this->loop_->post(this->note("posted"));
    const auto later = this->loop_->after(1h, this->note("in an hour"));
    const auto longest = this->loop_->after(1ms * (1LL << 32U), this->note("cut to 32 bits"));
    this->loop_->processPending();
    this->loop_->processPending();
    this->loop_->post(this->note("posted to a loop that goes"));
    const auto outliving = this->loop_->every(0ms, this->note("fired"));
    this->loop_.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(this->notes_, Notes{"posted"});
}

}  // namespace

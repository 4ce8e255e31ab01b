#include <gtest/gtest.h>
#include <vector>

#include "platform/linux/bus/Inbox.h"
#include "support/ManualRunLoop.h"

namespace {

using platform::Inbox;

class TheInbox : public testing::Test {
 protected:
    void push(int number, std::size_t cost = 0) {
        inbox_->push([this, number] { ran_.push_back(number); }, cost);
    }

    test_support::ManualRunLoop loop_;
    int drained_ = 0;
    std::vector<int> ran_;
    std::shared_ptr<Inbox> inbox_ = std::make_shared<Inbox>(loop_, [this] { ++drained_; });
};

TEST_F(TheInbox, RunsWhatIsDeliveredInOrderAlsoInAModalSession) {
    push(1);
    inbox_->push(
        [this] {
            ran_.push_back(2);
            EXPECT_EQ(loop_.runModal(), 7);
            ran_.push_back(5);
        },
        0);
    push(3);
    inbox_->push(
        [this] {
            ran_.push_back(4);
            loop_.stopModal(7);
        },
        0);
    push(6);
    EXPECT_TRUE(ran_.empty()) << "only the main thread runs them";
    loop_.processPending();
    EXPECT_EQ(ran_, (std::vector<int>{1, 2, 3, 4, 6, 5}));
}

TEST_F(TheInbox, IsFullByBytesOrByCountUntilHalfIsWorkedOff) {
    for (const auto& [count, cost] : {std::pair{8192, 1}, std::pair{8, 1 << 20}}) {
        for (int i = 0; i < count - 1; ++i)
            push(i, static_cast<std::size_t>(cost));
        EXPECT_TRUE(inbox_->hasRoom());
        push(count, static_cast<std::size_t>(cost));
        EXPECT_FALSE(inbox_->hasRoom());
        drained_ = 0;
        loop_.processPending();
        EXPECT_TRUE(inbox_->hasRoom());
        EXPECT_EQ(drained_, 1);
    }
}

TEST_F(TheInbox, RunsNothingOnceItIsClosedOrGone) {
    push(1);
    inbox_->close();
    push(2);
    loop_.processPending();
    inbox_ = std::make_shared<Inbox>(loop_, nullptr);
    push(3);
    inbox_.reset();
    loop_.processPending();
    EXPECT_TRUE(ran_.empty());
}

}  // namespace

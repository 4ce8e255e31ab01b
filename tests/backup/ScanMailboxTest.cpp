#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ScannerTestSupport.h"
#include "backup/scanner/ScanMailbox.h"

namespace {

using namespace std::chrono_literals;
using orv::ScanMailbox;
using orv::ScanMessage;

class ScanMailboxTest : public testing::Test {
 protected:
    void send(int first, int count) {
        for (int i = first; i < first + count; ++i) {
            mailbox_->send({ScanMessage::Kind::SubtreeFinished,
                            std::make_shared<const orv::orv_FolderScannerRequest>(
                                std::to_string(i), nullptr, orv::FolderTotals{})});
        }
    }
    void sendSlowResult() {
        mailbox_->send(
            {ScanMessage::Kind::Result, std::make_shared<const orv::orv_FolderScannerRequest>(
                                            "slow", nullptr, orv::FolderTotals{})});
    }

    test_support::ManualRunLoop loop_;
    test_support::RecordingScanDelegate delegate_;
    std::shared_ptr<ScanMailbox> mailbox_ = std::make_shared<ScanMailbox>(loop_, delegate_);
};

TEST_F(ScanMailboxTest, DeliversInOrderWhatCameWithinFourMilliseconds) {
    send(0, 2);
    loop_.advance(3ms);
    send(2, 1);
    EXPECT_THAT(delegate_.told, testing::IsEmpty());
    loop_.advance(1ms);
    EXPECT_THAT(delegate_.told, testing::ElementsAre("0 done", "1 done", "2 done"));
    send(3, 1);
    mailbox_->send({ScanMessage::Kind::ScanningFinished, nullptr});
    loop_.advance(4ms);
    EXPECT_THAT(delegate_.told,
                testing::ElementsAre("0 done", "1 done", "2 done", "3 done", "finished"));
}

TEST_F(ScanMailboxTest, LetsTheInterfaceGoOnBetweenMessagesThatTakeTheirTime) {
    delegate_.onResult = [] {
        // so long as a handler can be that the interface does not notice
        const auto end = std::chrono::steady_clock::now() + ScanMailbox::handling;
        while (std::chrono::steady_clock::now() < end) {
        }
    };
    for (int i = 0; i < 3; ++i)
        sendSlowResult();
    send(0, 1);
    loop_.advance(4ms);
    EXPECT_THAT(delegate_.told, testing::SizeIs(1));
    loop_.advance(ScanMailbox::pause);
    EXPECT_THAT(delegate_.told, testing::SizeIs(2));
    loop_.advance(2 * ScanMailbox::pause);
    EXPECT_EQ(delegate_.told.back(), "0 done");
}

TEST_F(ScanMailboxTest, DeliversNothingOnceItIsClosedEvenByWhoeverIsTold) {
    delegate_.onResult = [this] { mailbox_->close(); };
    sendSlowResult();
    send(0, 3);
    loop_.advance(4ms);
    send(3, 1);
    loop_.advance(10ms);
    EXPECT_THAT(delegate_.told, testing::SizeIs(1));
}

}  // namespace

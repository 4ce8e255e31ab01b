#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "platform/Services.h"
#include "platform/linux/bus/DBusNotificationCenter.h"
#include "support/ManualRunLoop.h"
#include "support/PrivateBus.h"

namespace {

using namespace std::chrono_literals;
using quelm::Dictionary;
using test_support::WaitUntil;

/// This process queues on a bus that it reaches by a link of its own; a peer listens.
class ARestartOfTheBus : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(bus_.runs());
        makeReachable();
        auto& services = platform::ProcessServices();
        services.notifications = std::make_unique<platform::DBusNotificationCenter>(
            loop_, "unix:path=" + link_, platform::Reporter());
        observation_ =
            peer_.observe(orv::notifications::agentEvent, orv::defaultNotificationObject,
                          [this](const Dictionary& payload) { received_.push_back(payload); });
        ASSERT_TRUE(peer_.waitUntilListening(20s));
        ASSERT_TRUE(services.notifications->waitUntilListening(20s));
        orv::BeginAgentEvents();
    }
    ~ARestartOfTheBus() override {
        orv::EndAgentEvents(0ms);
        platform::EndProcessServices();
    }

    void makeReachable() { std::filesystem::create_symlink(bus_.folder() / "bus", link_); }
    /// Queues numbered events from here on.
    void queue(int count) {
        for (const int end = queued_ + count; queued_ < end; ++queued_)
            orv::QueueAgentEvent("1", "numbered", {{"n", queued_}});
    }
    void expectAllOnceInOrder() {
        EXPECT_TRUE(WaitUntil([this] {
            loop_.processPending();
            return std::ssize(received_) >= queued_;
        }));
        ASSERT_EQ(std::ssize(received_), queued_);
        for (int i = 0; i < queued_; ++i)
            ASSERT_EQ(*received_[static_cast<std::size_t>(i)].find("n"), quelm::Value(i));
    }

    test_support::PrivateBus bus_;
    std::string link_ = bus_.folder() / "link";
    test_support::ManualRunLoop loop_;
    platform::DBusNotificationCenter peer_{loop_, bus_.address(), nullptr};
    std::unique_ptr<platform::DistributedNotificationCenter::Observation> observation_;
    std::vector<Dictionary> received_;
    int queued_ = 0;
};

TEST_F(ARestartOfTheBus, LosesNoneOfTheEventsThatWereQueuedMeanwhile) {
    queue(100);
    expectAllOnceInOrder();
    for (int restart = 0; restart < 2; ++restart) {
        std::filesystem::remove(link_);
        bus_.stop();
        queue(10'000);
        ASSERT_TRUE(bus_.start());
        ASSERT_TRUE(peer_.waitUntilListening(20s)) << "a signal does not wait for who comes late";
        makeReachable();
        expectAllOnceInOrder();
    }
}

TEST_F(ARestartOfTheBus, IsNotNeededForABusThatWasFrozen) {
    bus_.signal(SIGSTOP);
    queue(10'000);
    bus_.signal(SIGCONT);
    expectAllOnceInOrder();
}

}  // namespace

#include <algorithm>
#include <map>
#include <pthread.h>
#include <thread>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/LinkTest.h"

namespace {

using namespace orv;
using quelm::Dictionary;

class TheEventQueue : public LinkTest {
 protected:
    /// One event is under way and does not come to an end; what follows stays in the queue.
    void holdTheBus() {
        center_->hold(true);
        QueueAgentEvent("0", "held", {});
        while (center_->posted().empty())
            std::this_thread::yield();
    }
    /// What was queued behind the held event.
    Payloads sentAfterTheHeld() {
        Payloads payloads = sentEvents();
        EXPECT_EQ(payloads.at(0), (Dictionary{{"agent-id", "0"}, {"event_name", "held"}}));
        payloads.erase(payloads.begin());
        return payloads;
    }
};

TEST_F(TheEventQueue, TakesPairsUpToTheFirstNullAndSaysSoForAValue) {
    testing::internal::CaptureStderr();
    NotifyAgentEvent("1", "x", {{"a", 5}, {"b", std::nullopt}, {"c", 7}});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "NotifyAgentEvent: NULL value; skipping.");
    NotifyAgentEvent(std::nullopt, "y", {{"a", 1}, {"a", 2}, {nullptr, 3}, {"c", 7}});
    NotifyAgentEvent("1", "z", {{"event_name", "own"}, {"agent-id", "2"}});
    EXPECT_EQ(sentEvents(), (Payloads{{{"a", 5}, {"agent-id", "1"}, {"event_name", "x"}},
                                      {{"a", 2}, {"event_name", "y"}},
                                      {{"agent-id", "2"}, {"event_name", "own"}}}));
}

TEST_F(TheEventQueue, ReplacesOneOfTheLastFifteenOfTheSameKind) {
    for (const int position : {3, 4, 18}) {  // of 19
        holdTheBus();
        Payloads expected;
        for (int i = 0; i < 19; ++i) {
            const std::string name = i == position ? "status" : "other";
            QueueAgentEvent("1", name, {{"n", i}});
            expected.push_back({{"agent-id", "1"}, {"event_name", name}, {"n", i}});
        }
        QueueAgentEventCoalesce("1", "status", std::nullopt, {{"n", 100}});
        const Dictionary newer{{"agent-id", "1"}, {"event_name", "status"}, {"n", 100}};
        if (position >= 19 - 15) {
            expected[static_cast<std::size_t>(position)] = newer;
        } else {
            expected.push_back(newer);
        }
        EXPECT_EQ(sentAfterTheHeld(), expected) << position;
        beginAnew();
    }
}

TEST_F(TheEventQueue, TellsKindsByAgentNameAndTheTextUnderAKey) {
    holdTheBus();
    const auto coalesce = [](const AgentId& agent, const char* name, const char* key,
                             Dictionary payload) {
        QueueAgentEventCoalesce(agent, name, key ? std::optional<std::string>(key) : std::nullopt,
                                std::move(payload));
    };
    coalesce("1", "a", "path", {{"path", "/x"}, {"n", 1}});
    coalesce("1", "a", "path", {{"path", "/y"}, {"n", 2}});
    coalesce("2", "a", "path", {{"path", "/x"}, {"n", 3}});
    coalesce(std::nullopt, "a", "path", {{"path", "/x"}, {"n", 4}});
    coalesce("1", "b", nullptr, {{"n", 5}});
    coalesce("1", "b", "path", {{"path", "/x"}, {"n", 6}});  // the older has no such key
    coalesce("1", "b", "path", {{"n", 7}});                  // nor has this one
    coalesce("1", "a", "path", {{"path", "/x"}, {"n", 8}});
    coalesce(std::nullopt, "a", nullptr, {{"n", 9}});
    coalesce("1", "b", nullptr, {{"n", 10}});  // the newest of its kind
    std::vector<std::int64_t> numbers;
    for (const Dictionary& payload : sentAfterTheHeld())
        numbers.push_back(*payload.find("n")->asInteger());
    EXPECT_EQ(numbers, (std::vector<std::int64_t>{8, 2, 3, 9, 5, 6, 10}));
}

TEST_F(TheEventQueue, TakesEventsOfManyThreadsWhileTheBusIsSlowAndKeepsTheOrderOfEach) {
    constexpr int threads = 8;
    constexpr int each = 500;
    holdTheBus();
    {
        std::vector<std::jthread> senders;
        for (int sender = 0; sender < threads; ++sender) {
            senders.emplace_back([sender] {
                for (int i = 0; i < each; ++i)
                    QueueAgentEvent(std::to_string(sender), "n", {{"n", i}});
            });
        }
        center_->hold(false);
    }
    std::map<std::string, int> next;
    for (const Dictionary& payload : sentAfterTheHeld())
        EXPECT_EQ(*payload.find("n")->asInteger(), next[*payload.find("agent-id")->asString()]++);
    for (int sender = 0; sender < threads; ++sender)
        EXPECT_EQ(next[std::to_string(sender)], each);
}

TEST_F(TheEventQueue, StartsItsThreadAnewAfterAFailureAndPostsByItselfWithoutOne) {
    center_->failNextPost();
    QueueAgentEvent("1", "lost", {});
    while (center_->posted().empty())  // until the thread has failed and a next event revives it
        QueueAgentEvent("1", "revived", {});
    EndAgentEvents(std::chrono::seconds(10));
    beginAnew();
    pthread_attr_t usual, enormous;
    ASSERT_EQ(pthread_getattr_default_np(&usual) + pthread_attr_init(&enormous), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&enormous, std::size_t{1} << 50U), 0);
    ASSERT_EQ(pthread_setattr_default_np(&enormous), 0);
    QueueAgentEvent("1", "direct", {});
    EXPECT_EQ(center_->posted().size(), 1U);
    EXPECT_EQ(pthread_setattr_default_np(&usual), 0);
    QueueAgentEvent("1", "next", {});
    EXPECT_EQ(sentEvents(), (Payloads{{{"agent-id", "1"}, {"event_name", "direct"}},
                                      {{"agent-id", "1"}, {"event_name", "direct"}},
                                      {{"agent-id", "1"}, {"event_name", "next"}}}))
        << "what was posted directly stays in the queue";
}

TEST_F(TheEventQueue, EndsInTimeWithABusThatIsAway) {
    holdTheBus();
    QueueAgentEvent("1", "never sent", {});
    EndAgentEvents(std::chrono::milliseconds(1));
    QueueAgentEvent("1", "after the end", {});
    EXPECT_EQ(center_->posted().size(), 1U);
}

}  // namespace

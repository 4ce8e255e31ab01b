#include "agentlink/AgentEventDispatcher.h"
#include "agentlink/LinkTest.h"

namespace {

using namespace orv;
using quelm::Dictionary;

class TheDispatcher : public LinkTest {
 protected:
    struct Receiver {
        void handle(const Dictionary&) {
            calls->push_back(name);
            if (onCall) onCall();
        }
        void ring() { calls->push_back(name + " rings"); }

        std::string name;
        std::vector<std::string>* calls;
        std::function<void()> onCall = nullptr;
    };

    const Selector<Receiver> handle = MakeSelector<&Receiver::handle>("handle");
    const Selector<Receiver> ring = MakeSelector<&Receiver::ring>("ring");

    /// Who was called for an event of the default name, in order.
    std::vector<std::string> called(const char* name = "e") {
        calls_.clear();
        deliver(notifications::agentEvent, {{"event_name", name}, {"agent-id", "0"}});
        return calls_;
    }
    void registerAll(std::initializer_list<Receiver*> receivers) {
        for (Receiver* receiver : receivers)
            dispatcher_.registerEventName("e", receiver, handle);
    }

    using Names = std::vector<std::string>;
    Names calls_;
    AgentEventDispatcher dispatcher_;
    Receiver a_{"a", &calls_}, b_{"b", &calls_}, c_{"c", &calls_};
};

TEST_F(TheDispatcher, CallsTheFirstThenTheLatestBeforeTheEarlier) {
    registerAll({&a_, &b_, &c_, &b_});
    dispatcher_.registerEventName("other", &a_, ring);
    EXPECT_EQ(called(), (Names{"a", "b", "c", "b"}));
    EXPECT_EQ(called("other"), Names{"a rings"});
    EXPECT_EQ(called("unknown"), Names{});
}

TEST_F(TheDispatcher, RemovesOneOfAPairAndTheHeadLast) {
    registerAll({&a_, &b_, &a_});
    dispatcher_.registerEventName("e", &a_, ring);
    dispatcher_.unregisterEventName("e", &c_, handle);
    dispatcher_.unregisterEventName("unknown", &a_, handle);
    EXPECT_EQ(called(), (Names{"a", "a rings", "a", "b"}));
    dispatcher_.unregisterEventName("e", &a_, handle);
    EXPECT_EQ(called(), (Names{"a", "a rings", "b"}));
    dispatcher_.unregisterEventName("e", &a_, handle);
    EXPECT_EQ(called(), (Names{"a rings", "b"})) << "the head's successor becomes the head";
    dispatcher_.unregisterEventName("e", &b_, handle);
    dispatcher_.unregisterEventName("e", &a_, ring);
    EXPECT_EQ(called(), Names{});
    registerAll({&c_, &a_, &b_});
    EXPECT_EQ(called(), (Names{"c", "b", "a"}));
}

TEST_F(TheDispatcher, RemovesATargetFromOneNameOrFromAll) {
    registerAll({&a_, &a_, &b_, &a_});
    dispatcher_.registerEventName("other", &a_, ring);
    dispatcher_.registerEventName("other", &b_, ring);
    dispatcher_.unregisterEventName("e", &a_);
    EXPECT_EQ(called(), Names{"b"});
    EXPECT_EQ(called("other"), (Names{"a rings", "b rings"}));
    registerAll({&a_});
    dispatcher_.unregisterTarget(&a_);
    dispatcher_.unregisterTarget(&c_);
    EXPECT_EQ(called(), Names{"b"});
    EXPECT_EQ(called("other"), Names{"b rings"});
}

TEST_F(TheDispatcher, LetsReceiversComeAndGoDuringADelivery) {
    registerAll({&a_, &b_, &c_});  // called as a, c, b
    a_.onCall = [&] {
        a_.onCall = nullptr;
        dispatcher_.unregisterTarget(&a_);
        dispatcher_.unregisterTarget(&c_);
    };
    EXPECT_EQ(called(), (Names{"a", "b"}));
    b_.onCall = [&] {
        dispatcher_.unregisterTarget(&b_);
        registerAll({&a_});
    };
    EXPECT_EQ(called(), Names{"b"});
    EXPECT_EQ(called(), Names{"a"});
}

TEST_F(TheDispatcher, LetsWhatAReceiverThrowsOut) {
    registerAll({&a_, &b_});
    a_.onCall = [] { throw std::runtime_error("a"); };
    EXPECT_THROW(called(), std::runtime_error);
    EXPECT_EQ(calls_, Names{"a"});
}

}  // namespace

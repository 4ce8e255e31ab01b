#include <csignal>
#include <gtest/gtest.h>
#include <limits>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/linux/bus/BusBody.h"
#include "platform/linux/bus/BusTopic.h"
#include "platform/linux/bus/DBusNotificationCenter.h"
#include "support/ManualRunLoop.h"
#include "support/PrivateBus.h"

namespace {

using namespace std::chrono_literals;
using platform::DBusNotificationCenter;
using platform::MakeBusTopic;
using quelm::Dictionary;
using quelm::Value;
using test_support::WaitUntil;

constexpr const char* event = "com.quelm.client.AgentEvent";
constexpr const char* object = "com.corvanta.orv";

/// One process on the bus.
struct Peer {
    explicit Peer(const std::string& address)
        : center(loop, address, [this](const std::string& line) {
              const std::lock_guard lock(mutex);
              reports.push_back(line);
          }) {}

    void listen(const char* name = event) {
        observations.push_back(center.observe(
            name, object, [this](const Dictionary& payload) { received.push_back(payload); }));
        ASSERT_TRUE(center.waitUntilListening(10s));
    }
    /// Runs the loop until so many notifications have arrived.
    bool hears(std::size_t count) {
        return WaitUntil([&] {
            loop.processPending();
            return received.size() >= count;
        });
    }
    std::vector<std::string> said() {
        const std::lock_guard lock(mutex);
        return reports;
    }

    test_support::ManualRunLoop loop;
    std::mutex mutex;
    std::vector<std::string> reports;
    DBusNotificationCenter center;
    std::vector<Dictionary> received;
    std::vector<std::unique_ptr<DBusNotificationCenter::Observation>> observations;
};

class TheBus : public testing::Test {
 protected:
    void SetUp() override { ASSERT_TRUE(bus_.runs()); }

    test_support::PrivateBus bus_;
    Peer sender_{bus_.address()};
    Peer receiver_{bus_.address()};
};

TEST(BusTopics, AreMadeOfANameAndAnObject) {
    const auto topic = MakeBusTopic(event, object);
    ASSERT_TRUE(topic);
    EXPECT_EQ(platform::MatchRule(*topic),
              "type='signal',interface='com.quelm.client',member='AgentEvent',"
              "path='/com/corvanta/orv'");
    EXPECT_EQ(MakeBusTopic(event, ".a..b_'/ä.")->path, "/_2ea/_2eb_5f_27_2f_c3_a4/_2e");
    for (const char* name :
         {"", "AgentEvent", "client.AgentEvent", "a.b.1", "a..b.C", "a.b.", "a.b.c-d"})
        EXPECT_FALSE(MakeBusTopic(name, object)) << name;
    EXPECT_FALSE(MakeBusTopic(event, ""));
    EXPECT_FALSE(MakeBusTopic(event, std::string(256, 'a')));
}

Value nested(int levels, bool arrays) {
    Value value = "leaf";
    for (int i = 0; i < levels; ++i)
        value = arrays ? Value(quelm::Array{value}) : Value(Dictionary{{"k", value}});
    return value;
}

TEST_F(TheBus, CarriesEveryKindOfValueToObserversOfTheNameAndTheObject) {
    const Dictionary payload = {
        {"boolean", true},
        {"integer", std::numeric_limits<std::int64_t>::min()},
        {"real", -2.5e300},
        {"string", "ä\n\x01 \xF0\x9F\x98\x80"},
        {"", ""},
        {"data", quelm::Data{std::string("\0\xFF", 2)}},
        {"no data", quelm::Data{}},
        {"date", quelm::Date{1.5}},
        {"array", quelm::Array{1, "a", quelm::Array{}, false}},
        {"dictionary", Dictionary{{"a", Dictionary{}}}},
        {"as deep as it goes", nested(20, false)},
        {"deep arrays", nested(30, true)},
        {"large", std::string(1 << 20, 'x')},
    };
    receiver_.listen();
    sender_.listen();
    sender_.center.post("com.quelm.client.Unheard", object, {{"a", 1}});
    sender_.center.post(event, "another.object", {{"a", 1}});
    sender_.center.post(event, object, payload);
    sender_.center.post(event, object, {});
    for (Peer* peer : {&receiver_, &sender_}) {
        ASSERT_TRUE(peer->hears(2)) << "the sender's own observers hear it too";
        EXPECT_EQ(peer->received, (std::vector<Dictionary>{payload, {}}));
        EXPECT_EQ(peer->said(), std::vector<std::string>{});
    }
}

TEST_F(TheBus, DropsWhatItCannotCarryAndStaysConnected) {
    receiver_.listen();
    const std::vector<Dictionary> bad = {
        {{"text", "\xFF"}},
        {{"text", std::string("a\0b", 3)}},
        {{std::string("k\0", 2), 1}},
        {{"deep", nested(21, false)}},
        {{"deep", nested(31, true)}},
        {{"many", quelm::Array(platform::BusBodyLimits::values, Value(true))}},
        {{"large", quelm::Data{std::string(platform::BusBodyLimits::bytes, 'x')}}},
    };
    for (const Dictionary& payload : bad)
        sender_.center.post(event, object, payload);
    sender_.center.post("NoInterface", object, {});
    EXPECT_EQ(sender_.said().size(), bad.size() + 1);
    sender_.center.post(event, object, {{"good", 1}});
    ASSERT_TRUE(receiver_.hears(1));
    EXPECT_EQ(receiver_.received, (std::vector<Dictionary>{{{"good", 1}}}));
    EXPECT_EQ(sender_.said().size(), bad.size() + 1);
}

TEST_F(TheBus, TellsObserversNothingOnceTheirHandleIsGone) {
    receiver_.listen();
    receiver_.listen();
    sender_.center.post(event, object, {});
    ASSERT_TRUE(receiver_.hears(2)) << "each handle counts";
    sender_.center.post(event, object, {});
    ASSERT_TRUE(sender_.center.waitUntilListening(10s));
    receiver_.observations.pop_back();  // perhaps with one on its way
    ASSERT_TRUE(receiver_.hears(3));
    receiver_.observations.clear();
    receiver_.listen("com.quelm.client.Other");
    sender_.center.post(event, object, {});
    sender_.center.post("com.quelm.client.Other", object, {});
    ASSERT_TRUE(receiver_.hears(4));
    EXPECT_EQ(receiver_.received.size(), 4U);
}

TEST_F(TheBus, IsReachedAgainByItselfWithEveryObservationAndAnnouncement) {
    const char* agent = "com.quelm.client.Agent.account_1";
    std::vector<bool> changes;
    const auto watch =
        receiver_.center.observeConnection([&](bool connected) { changes.push_back(connected); });
    receiver_.center.announce(agent);
    receiver_.listen();
    bus_.stop();
    ASSERT_TRUE(WaitUntil([&] {
        receiver_.loop.processPending();
        return changes.size() == 2;
    }));
    EXPECT_EQ(receiver_.said().size(), 1U);
    ASSERT_TRUE(bus_.start());
    ASSERT_TRUE(receiver_.center.waitUntilListening(20s));
    EXPECT_TRUE(sender_.center.isAnnounced(agent, 20s));
    sender_.center.post(event, object, {});
    ASSERT_TRUE(receiver_.hears(1));
    EXPECT_EQ(changes, (std::vector<bool>{true, false, true}));
}

TEST_F(TheBus, NeverHoldsUpWhoPostsWhileItIsFrozen) {
    receiver_.listen();
    ASSERT_TRUE(sender_.center.waitUntilListening(10s));
    bus_.signal(SIGSTOP);
    const Dictionary payload = {{"text", std::string(1 << 20, 'x')}};
    for (int i = 0; i < 20; ++i)
        sender_.center.post(event, object, payload);  // more than a socket takes
    EXPECT_FALSE(sender_.center.waitUntilSent(1ms));
    EXPECT_FALSE(sender_.center.waitUntilListening(1ms));
    bus_.signal(SIGCONT);
    ASSERT_TRUE(receiver_.hears(20));
}

TEST_F(TheBus, LetsManyThreadsPost) {
    receiver_.listen();
    {
        std::vector<std::jthread> threads;
        for (int sender = 0; sender < 4; ++sender) {
            threads.emplace_back([&, sender] {
                for (int i = 0; i < 500; ++i)
                    sender_.center.post(event, object, {{"sender", sender}, {"n", i}});
            });
        }
    }
    ASSERT_TRUE(receiver_.hears(2000));
    std::vector<std::int64_t> next(4);
    for (const Dictionary& payload : receiver_.received) {
        auto& expected = next.at(static_cast<std::size_t>(*payload.find("sender")->asInteger()));
        EXPECT_EQ(*payload.find("n")->asInteger(), expected++);
    }
}

TEST_F(TheBus, KnowsWhoIsAnnounced) {
    sender_.center.announce("com.quelm.client.Agent.account_2");
    ASSERT_TRUE(sender_.center.waitUntilListening(10s));
    EXPECT_TRUE(receiver_.center.isAnnounced("com.quelm.client.Agent.account_2", 10s));
    EXPECT_FALSE(receiver_.center.isAnnounced("com.quelm.client.Agent.account_3", 10s));
    EXPECT_FALSE(receiver_.center.isAnnounced("no name", 10s));
}

TEST(NoBus, IsSaidOnceAndKeepsNobodyWaiting) {
    const test_support::TemporaryFolder folder;
    for (const std::string& address :
         {std::string(), "unix:path=" + folder / "none", std::string("nonsense"),
          std::string("unix:path=/dev/null")}) {
        Peer peer(address);
        peer.observations.push_back(peer.center.observe(event, object, [](const auto&) {}));
        peer.center.post(event, object, {});
        EXPECT_FALSE(peer.center.waitUntilListening(20ms));
        EXPECT_FALSE(peer.center.isAnnounced("a.b", 20ms));
        EXPECT_EQ(peer.said().size(), 1U) << address;
    }
}

/// A stranger who writes what he likes.
class TheBusWithAStranger : public TheBus {
 protected:
    void SetUp() override {
        TheBus::SetUp();
        stranger_ = dbus_connection_open_private(bus_.address().c_str(), nullptr);
        ASSERT_TRUE(stranger_ && dbus_bus_register(stranger_, nullptr));
        receiver_.listen();
    }
    ~TheBusWithAStranger() override {
        dbus_connection_close(stranger_);
        dbus_connection_unref(stranger_);
    }

    template <class... Arguments>
    void send(const char* member, Arguments... arguments) {
        const platform::BusMessage signal(
            dbus_message_new_signal("/com/corvanta/orv", "com.quelm.client", member));
        dbus_message_append_args(signal.get(), arguments..., DBUS_TYPE_INVALID);
        dbus_connection_send(stranger_, signal.get(), nullptr);
    }

    /// {"k": value} of any signature.
    template <class Fill>
    void sendMember(const char* signature, Fill fill) {
        const platform::BusMessage signal(
            dbus_message_new_signal("/com/corvanta/orv", "com.quelm.client", "AgentEvent"));
        DBusMessageIter body, entries, entry, value;
        dbus_message_iter_init_append(signal.get(), &body);
        dbus_message_iter_open_container(&body, DBUS_TYPE_ARRAY, "{sv}", &entries);
        dbus_message_iter_open_container(&entries, DBUS_TYPE_DICT_ENTRY, nullptr, &entry);
        const char* key = "k";
        dbus_message_iter_append_basic(&entry, DBUS_TYPE_STRING, &key);
        dbus_message_iter_open_container(&entry, DBUS_TYPE_VARIANT, signature, &value);
        fill(&value);
        dbus_message_iter_close_container(&entry, &value);
        dbus_message_iter_close_container(&entries, &entry);
        dbus_message_iter_close_container(&body, &entries);
        dbus_connection_send(stranger_, signal.get(), nullptr);
    }
    template <class T>
    void sendBasic(int type, T value) {
        const char signature[] = {static_cast<char>(type), '\0'};
        sendMember(signature, [&](DBusMessageIter* iter) {
            dbus_message_iter_append_basic(iter, type, &value);
        });
    }
    void sendNumbers(int elementType, const std::vector<std::int32_t>& numbers) {
        const char element[] = {static_cast<char>(elementType), '\0'};
        sendMember((std::string("a") + element).c_str(), [&](DBusMessageIter* iter) {
            DBusMessageIter items;
            dbus_message_iter_open_container(iter, DBUS_TYPE_ARRAY, element, &items);
            for (const auto number : numbers)
                dbus_message_iter_append_basic(&items, elementType, &number);
            dbus_message_iter_close_container(iter, &items);
        });
    }

    DBusConnection* stranger_ = nullptr;
};

TEST_F(TheBusWithAStranger, TakesIntegersOfAnyWidthAndArraysOfAnyType) {
    sendBasic(DBUS_TYPE_BYTE, std::uint8_t{255});
    sendBasic(DBUS_TYPE_INT16, std::int16_t{-1});
    sendBasic(DBUS_TYPE_UINT16, std::uint16_t{65535});
    sendBasic(DBUS_TYPE_INT32, std::int32_t{-1});
    sendBasic(DBUS_TYPE_UINT32, std::uint32_t{4'294'967'295});
    sendBasic(DBUS_TYPE_UINT64, std::uint64_t{1} << 62U);
    sendBasic(DBUS_TYPE_OBJECT_PATH, "/a");
    sendNumbers(DBUS_TYPE_INT32, {1, -2});
    dbus_connection_flush(stranger_);
    ASSERT_TRUE(receiver_.hears(8));
    const std::vector<Value> expected = {
        255, -1, 65535, -1, 4'294'967'295, std::int64_t{1} << 62U, "/a", quelm::Array{1, -2}};
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(*receiver_.received[i].find("k"), expected[i]);
}

TEST_F(TheBusWithAStranger, IsDroppedForWrongBodiesWithOneLineForEachKind) {
    const char* text = "text";
    for (int i = 0; i < 100; ++i) {
        send("AgentEvent");
        send("AgentEvent", DBUS_TYPE_STRING, &text);
        send("Unknown", DBUS_TYPE_STRING, &text);
        sendBasic(DBUS_TYPE_UINT64, ~std::uint64_t{0});
        sendMember("(s)", [&](DBusMessageIter* iter) {
            DBusMessageIter members;
            dbus_message_iter_open_container(iter, DBUS_TYPE_STRUCT, nullptr, &members);
            dbus_message_iter_append_basic(&members, DBUS_TYPE_STRING, &text);
            dbus_message_iter_close_container(iter, &members);
        });
    }
    sendNumbers(DBUS_TYPE_INT32, std::vector<std::int32_t>(platform::BusBodyLimits::values + 1));
    sendBasic(DBUS_TYPE_STRING, "good");
    dbus_connection_flush(stranger_);
    ASSERT_TRUE(receiver_.hears(1));
    EXPECT_EQ(receiver_.received, (std::vector<Dictionary>{{{"k", "good"}}}));
    EXPECT_EQ(receiver_.said().size(), 4U) << "no dictionary, number, type, count";
}

TEST_F(TheBusWithAStranger, LosesNothingOfAFloodToAReceiverThatIsBusy) {
    constexpr int count = 3000;
    const std::string large(256 << 10U, 'x');
    const char* text = large.c_str();
    for (int i = 0; i < count; ++i) {
        sendBasic(DBUS_TYPE_INT32, i);
        if (i % 10 == 0) sendBasic(DBUS_TYPE_STRING, text);
        if (i % 100 == 0) dbus_connection_flush(stranger_);
    }
    dbus_connection_flush(stranger_);
    ASSERT_TRUE(receiver_.hears(count + count / 10)) << "only now does the receiver's loop run";
    int next = 0;
    for (const Dictionary& payload : receiver_.received) {
        if (const auto* number = payload.find("k")->asInteger()) {
            EXPECT_EQ(*number, next++);
        }
    }
    EXPECT_EQ(next, count);
}

}  // namespace

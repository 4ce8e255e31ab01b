// The agent link within one process: handing an event to its receivers, beside calling as many
// plain functions, and replacing an event in a queue.
#include <benchmark/benchmark.h>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "agentlink/AgentEventDispatcher.h"
#include "agentlink/AgentEventQueue.h"
#include "platform/Services.h"
#include "support/FakeNotificationCenter.h"

namespace {

using quelm::Dictionary;

const Dictionary event = {{"agent-id", "1"},      {"event_name", "store_status"},
                          {"total-bytes", "123"}, {"stored-bytes", "45"},
                          {"total-files", "6"},   {"stored-files", "3"}};

struct Receiver {
    void handle(const Dictionary& payload) { keys += payload.size(); }
    std::size_t keys = 0;
};

void Dispatch(benchmark::State& state) {
    orv::AgentEventDispatcher dispatcher;
    std::vector<Receiver> receivers(static_cast<std::size_t>(state.range(0)));
    for (Receiver& receiver : receivers) {
        dispatcher.registerEventName("store_status", &receiver,
                                     orv::MakeSelector<&Receiver::handle>("handle"));
    }
    for ([[maybe_unused]] const auto turn : state)
        dispatcher.notifyAgentEvent("store_status", event, "1");
    benchmark::DoNotOptimize(receivers.back().keys);
}
BENCHMARK(Dispatch)->Arg(1)->Arg(10)->Arg(1000);

void DispatchPlainCalls(benchmark::State& state) {
    std::vector<Receiver> receivers(static_cast<std::size_t>(state.range(0)));
    std::vector<std::function<void(const Dictionary&)>> calls;
    for (Receiver& receiver : receivers)
        calls.emplace_back([&receiver](const Dictionary& payload) { receiver.handle(payload); });
    for ([[maybe_unused]] const auto turn : state) {
        for (const auto& call : calls)
            call(event);
    }
    benchmark::DoNotOptimize(receivers.back().keys);
}
BENCHMARK(DispatchPlainCalls)->Arg(1)->Arg(10)->Arg(1000);

/// The bus is held: the queue keeps its length.
class HeldQueue {
 public:
    explicit HeldQueue(std::int64_t length) {
        auto center = std::make_unique<test_support::FakeNotificationCenter>();
        center_ = center.get();
        platform::ProcessServices().notifications = std::move(center);
        orv::BeginAgentEvents();
        center_->hold(true);
        orv::QueueAgentEvent("1", "held", {});
        while (center_->posted().empty())
            std::this_thread::yield();
        orv::QueueAgentEvent("1", "store_status", event);
        for (std::int64_t i = 1; i < length; ++i)
            orv::QueueAgentEvent("1", "other", event);
    }
    ~HeldQueue() {
        orv::EndAgentEvents(std::chrono::milliseconds(0));
        platform::EndProcessServices();
    }

 private:
    test_support::FakeNotificationCenter* center_;
};

void CopyOfEvent(benchmark::State& state) {
    for ([[maybe_unused]] const auto turn : state)
        benchmark::DoNotOptimize(Dictionary(event));
}
BENCHMARK(CopyOfEvent);

/// The match is the newest of the queue, whatever its length.
void Coalesce(benchmark::State& state) {
    const HeldQueue queue(state.range(0));
    orv::QueueAgentEvent("1", "store_status", event);
    for ([[maybe_unused]] const auto turn : state)
        orv::QueueAgentEventCoalesce("1", "store_status", std::nullopt, event);
}
BENCHMARK(Coalesce)->Arg(10)->Arg(1000)->Arg(100'000);

}  // namespace

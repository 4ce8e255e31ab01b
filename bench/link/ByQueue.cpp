#include <unistd.h>

#include "Traffic.h"
#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "platform/Services.h"
#include "platform/linux/QtRunLoop.h"
#include "platform/linux/bus/DBusNotificationCenter.h"

namespace {

void openServices(const std::string& address) {
    auto& services = platform::ProcessServices();
    services.runLoop = std::make_unique<platform::QtRunLoop>();
    services.notifications = std::make_unique<platform::DBusNotificationCenter>(
        *services.runLoop, address, platform::Reporter());
}

}  // namespace

void SendByQueue(const std::string& address, const Traffic& traffic) {
    openServices(address);
    if (!platform::ProcessServices().notifications->waitUntilListening(std::chrono::seconds(10))) {
        ::_exit(1);
    }
    Pace(traffic, [](int number) {
        quelm::Dictionary payload{{numberKey, number}, {sentKey, Now()}};
        for (const char* key : textKeys)
            payload.set(key, eventText);
        orv::QueueAgentEvent("1", "store_status", std::move(payload));
    });
    orv::EndAgentEvents(std::chrono::seconds(60));
    platform::EndProcessServices();
}

void HearByObserver(const std::string& address, const Traffic& traffic,
                    const std::function<void()>& ready, const Heard& heard) {
    openServices(address);
    auto& services = platform::ProcessServices();
    const auto observation = services.notifications->observe(
        orv::notifications::agentEvent, orv::defaultNotificationObject,
        [&](const quelm::Dictionary& payload) {
            const auto* number = payload.find(numberKey);
            if (!number) return;
            const int n = static_cast<int>(*number->asInteger());
            heard(n, *payload.find(sentKey)->asInteger());
            if (n + 1 == traffic.events) services.runLoop->stopModal(0);
        });
    if (!services.notifications->waitUntilListening(std::chrono::seconds(10))) ::_exit(1);
    ready();
    services.runLoop->runModal();
}

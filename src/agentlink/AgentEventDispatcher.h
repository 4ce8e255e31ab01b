#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "agentlink/AgentEventTarget.h"
#include "agentlink/AgentObservers.h"

namespace orv {

/// Hands each agent event to those who asked for its name. The first who ever registered is called
/// first, then the others, the latest before the earlier. Every account's events arrive; a receiver
/// looks at "agent-id" itself. Receivers unregister before they go away; they may register and
/// unregister, themselves and others, while an event is delivered. Main thread only.
class AgentEventDispatcher {
 public:
    AgentEventDispatcher();
    AgentEventDispatcher(const AgentEventDispatcher&) = delete;
    AgentEventDispatcher& operator=(const AgentEventDispatcher&) = delete;
    ~AgentEventDispatcher();

    /// The process's own, made on first use.
    static AgentEventDispatcher& defaultDispatcher();

    /// A pair that registers twice is called twice. `target` has the selector's very class: its
    /// address is what unregistering compares.
    template <class Target>
    void registerEventName(std::string_view name, Target* target,
                           const Selector<Target>& selector) {
        insert(name, std::make_shared<AgentEventTarget>(target, selector));
    }
    /// Removes one registration of the pair, the head of the chain only when it is the last.
    template <class Target>
    void unregisterEventName(std::string_view name, Target* target,
                             const Selector<Target>& selector) {
        removeOne(name, target, selector.name);
    }
    /// Removes all of the target's registrations for the name.
    void unregisterEventName(std::string_view name, const void* target);
    /// Removes all of the target's registrations.
    void unregisterTarget(const void* target);

    /// Calls every receiver of the name. What a receiver throws ends the delivery.
    void notifyAgentEvent(const std::string& name, const quelm::Dictionary& userInfo,
                          const AgentId& agentId);

 private:
    using Map = std::map<std::string, AgentEventTarget::Link, std::less<>>;

    void insert(std::string_view name, AgentEventTarget::Link link);
    void removeOne(std::string_view name, const void* target, std::string_view selector);
    Map::iterator removeAll(Map::iterator chain, const void* target);
    Map::iterator removeHead(Map::iterator chain);

    Map _dispatchMap;  // to the head of each name's chain
    AgentObserverRecord _agentEventContext;
};

}  // namespace orv

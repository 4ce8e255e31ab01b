#include "agentlink/AgentEventDispatcher.h"

#include <utility>

namespace orv {

AgentEventDispatcher::AgentEventDispatcher() {
    RegisterAgentEventObserver(_agentEventContext, this, &ForwardAgentEvent<AgentEventDispatcher>);
}

AgentEventDispatcher::~AgentEventDispatcher() {
    RemoveAgentObserver(_agentEventContext);
}

AgentEventDispatcher& AgentEventDispatcher::defaultDispatcher() {
    static AgentEventDispatcher dispatcher;
    return dispatcher;
}

void AgentEventDispatcher::insert(std::string_view name, AgentEventTarget::Link link) {
    const auto chain = _dispatchMap.find(name);
    if (chain == _dispatchMap.end()) {
        _dispatchMap.emplace(name, std::move(link));
    } else {
        chain->second->insertNext(link);
    }
}

void AgentEventDispatcher::removeOne(std::string_view name, const void* target,
                                     std::string_view selector) {
    const auto chain = _dispatchMap.find(name);
    if (chain == _dispatchMap.end()) return;
    for (auto link = chain->second; link->next(); link = link->next()) {
        if (link->next()->is(target, selector)) return link->removeNext();
    }
    if (chain->second->is(target, selector)) removeHead(chain);
}

void AgentEventDispatcher::unregisterEventName(std::string_view name, const void* target) {
    const auto chain = _dispatchMap.find(name);
    if (chain != _dispatchMap.end()) removeAll(chain, target);
}

void AgentEventDispatcher::unregisterTarget(const void* target) {
    for (auto chain = _dispatchMap.begin(); chain != _dispatchMap.end();)
        chain = removeAll(chain, target);
}

/// Answers the next chain.
AgentEventDispatcher::Map::iterator AgentEventDispatcher::removeAll(Map::iterator chain,
                                                                    const void* target) {
    for (auto link = chain->second; link->next();) {
        if (link->next()->is(target, {})) {
            link->removeNext();
        } else {
            link = link->next();
        }
    }
    return chain->second->is(target, {}) ? removeHead(chain) : std::next(chain);
}

/// Its successor becomes the head; a chain without one goes. Answers the next chain.
AgentEventDispatcher::Map::iterator AgentEventDispatcher::removeHead(Map::iterator chain) {
    chain->second->retire();
    if (!chain->second->next()) return _dispatchMap.erase(chain);
    chain->second = chain->second->next();
    return std::next(chain);
}

void AgentEventDispatcher::notifyAgentEvent(const std::string& name,
                                            const quelm::Dictionary& userInfo, const AgentId&) {
    const auto chain = _dispatchMap.find(name);
    if (chain == _dispatchMap.end()) return;
    for (auto link = chain->second; link; link = link->next())
        link->performWithUserInfo(userInfo);
}

}  // namespace orv

#pragma once

#include <memory>
#include <string_view>

#include "platform/Value.h"

namespace orv {

/// An operation of a class as a value: two are the same when their names are. Operations take an
/// event's payload or nothing.
template <class Target>
struct Selector {
    std::string_view name;
    void (*perform)(void* target, const quelm::Dictionary& userInfo);
};

/// MakeSelector<&Pane::handleStoreStatus>("handleStoreStatus"): the name is the operation's own.
template <auto Operation, class Target>
[[nodiscard]] Selector<Target> MakeSelectorOf(std::string_view name) {
    return {name, [](void* target, const quelm::Dictionary& userInfo) {
                auto& object = *static_cast<Target*>(target);
                if constexpr (std::is_invocable_v<decltype(Operation), Target&,
                                                  const quelm::Dictionary&>) {
                    (object.*Operation)(userInfo);
                } else {
                    (object.*Operation)();
                }
            }};
}

namespace detail {
template <class Target, class Function>
Target TargetOf(Function Target::*);
}

template <auto Operation>
[[nodiscard]] auto MakeSelector(std::string_view name) {
    return MakeSelectorOf<Operation, decltype(detail::TargetOf(Operation))>(name);
}

/// One link of the chain of those who receive an event. The receiver is not kept alive.
class AgentEventTarget {
 public:
    using Link = std::shared_ptr<AgentEventTarget>;

    template <class Target>
    AgentEventTarget(Target* target, const Selector<Target>& selector)
        : _target(target), _selector(selector.name), perform_(selector.perform) {}

    [[nodiscard]] const void* target() const { return _target; }
    [[nodiscard]] std::string_view selector() const { return _selector; }
    /// Whether the receiver is this one; with an empty selector, whatever its operation.
    [[nodiscard]] bool is(const void* target, std::string_view selector) const {
        return _target == target && (selector.empty() || _selector == selector);
    }

    [[nodiscard]] const Link& next() const { return _next; }
    /// Puts the link behind this one.
    void insertNext(const Link& link);
    /// Takes the link behind this one out. It keeps its own successor, so that a delivery that has
    /// come to it goes on, but is not performed any more.
    void removeNext();
    /// As `removeNext` does it to the link that it takes out.
    void retire() { _target = nullptr; }

    void performWithUserInfo(const quelm::Dictionary& userInfo) const;

 private:
    void* _target;
    std::string_view _selector;
    void (*perform_)(void* target, const quelm::Dictionary& userInfo);
    Link _next;
};

}  // namespace orv

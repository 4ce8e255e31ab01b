#include "agentlink/AgentEventTarget.h"

namespace orv {

void AgentEventTarget::insertNext(const Link& link) {
    link->_next = _next;
    _next = link;
}

void AgentEventTarget::removeNext() {
    if (!_next) return;
    const Link removed = _next;
    removed->retire();
    _next = removed->_next;
}

void AgentEventTarget::performWithUserInfo(const quelm::Dictionary& userInfo) const {
    if (_target) perform_(_target, userInfo);
}

}  // namespace orv

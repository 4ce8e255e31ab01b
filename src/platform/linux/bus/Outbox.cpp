#include "platform/linux/bus/Outbox.h"

#include <utility>

namespace platform {

bool Outbox::add(BusMessage message) {
    constexpr std::size_t most = 100'000;
    if (messages_.size() >= most) return false;
    messages_.push_back(std::move(message));
    return true;
}

void Outbox::pump(BusConnection& connection) {
    constexpr int most = 64;
    for (int i = 0; i < most && !messages_.empty() && connection.isConnected(); ++i) {
        if (!firstIsUnderWay_) connection.send(messages_.front().get());
        firstIsUnderWay_ = true;
        // A connection that breaks forgets what it has not sent; then this message begins anew.
        if (!connection.isConnected() || connection.hasUnsent()) return;
        messages_.pop_front();
        firstIsUnderWay_ = false;
        attempts_ = 0;
    }
}

bool Outbox::rewind() {
    constexpr int mostAttempts = 3;
    if (!std::exchange(firstIsUnderWay_, false)) return true;
    if (++attempts_ < mostAttempts) {
        messages_.front().reset(dbus_message_copy(messages_.front().get()));
        return true;
    }
    messages_.pop_front();
    attempts_ = 0;
    return false;
}

}  // namespace platform

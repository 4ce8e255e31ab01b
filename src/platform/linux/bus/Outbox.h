#pragma once

#include <cstddef>
#include <deque>

#include "platform/linux/bus/BusConnection.h"

namespace platform {

/// Messages on their way out, in order. Each is known until it has left the process altogether, so
/// that a lost connection loses none that waits. Not thread-safe: its owner locks.
class Outbox {
 public:
    /// False, and the message is dropped, when 100,000 wait already.
    [[nodiscard]] bool add(BusMessage message);
    [[nodiscard]] bool empty() const { return messages_.empty(); }
    [[nodiscard]] std::size_t size() const { return messages_.size(); }
    /// Writes as much as the connection takes, at most 64 messages: the lock is short.
    void pump(BusConnection& connection);
    /// Whether more could be written at once.
    [[nodiscard]] bool canGoOn() const { return !messages_.empty() && !firstIsUnderWay_; }
    /// The connection is gone: the message that was under way begins anew. False when it has seen
    /// three connections go, and is dropped as their likely cause.
    [[nodiscard]] bool rewind();

 private:
    std::deque<BusMessage> messages_;
    bool firstIsUnderWay_ = false;  // partly written
    int attempts_ = 0;              // at the first
};

}  // namespace platform

#pragma once

#include <functional>
#include <thread>

namespace orv {

/// Turns SIGTERM, SIGINT and SIGHUP into a call on a thread of its own. Made before any other
/// thread, since threads inherit which signals they leave alone.
class TerminationSignals {
 public:
    explicit TerminationSignals(std::function<void()> requested);
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    ~TerminationSignals();

 private:
    std::thread thread_;
};

}  // namespace orv

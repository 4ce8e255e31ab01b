#pragma once

#include <atomic>
#include <string>
#include <utility>

#include "platform/Services.h"

namespace platform {

/// Passes on the first line only: a service that is missing is said once. Any thread.
class OnceReporter {
 public:
    explicit OnceReporter(Reporter reporter) : reporter_(std::move(reporter)) {}

    void report(const std::string& line) {
        if (reporter_ && !said_.exchange(true)) reporter_(line);
    }

 private:
    Reporter reporter_;
    std::atomic<bool> said_ = false;
};

}  // namespace platform

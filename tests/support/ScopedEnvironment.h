#pragma once

#include <optional>
#include <stdlib.h>
#include <string>
#include <utility>

namespace test_support {

/// Sets an environment variable, or unsets it by std::nullopt, until it goes out of scope. While no
/// other thread runs.
class ScopedEnvironment {
 public:
    ScopedEnvironment(std::string name, const std::optional<std::string>& value)
        : name_(std::move(name)) {
        if (const char* before = ::getenv(name_.c_str())) before_ = before;
        set(value);
    }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
    ~ScopedEnvironment() { set(before_); }

 private:
    void set(const std::optional<std::string>& value) const {
        value ? ::setenv(name_.c_str(), value->c_str(), 1) : ::unsetenv(name_.c_str());
    }

    std::string name_;
    std::optional<std::string> before_;
};

}  // namespace test_support

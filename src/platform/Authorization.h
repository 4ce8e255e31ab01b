#pragma once

#include <string>

namespace platform {

/// Rights that the user grants by authenticating. Any thread but the main one of a program with
/// windows: a call waits for the user.
class Authorization {
 public:
    virtual ~Authorization() = default;

    /// Defines the right by the rule where it is not defined yet and the platform lets a program
    /// do so, then asks for it. 0 when granted, else the platform's first failing status.
    [[nodiscard]] virtual int obtainRight(const std::string& right, const std::string& rule) = 0;
};

}  // namespace platform

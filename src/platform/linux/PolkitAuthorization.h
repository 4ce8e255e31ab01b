#pragma once

#include "platform/Authorization.h"
#include "platform/linux/OnceReporter.h"

namespace platform {

/// Rights are the action ids of polkit (8). Only an installed policy file defines one, so the rule
/// is not used: packaging/polkit/ has ours, in which "auth_self" stands for
/// "authenticate-session-owner".
class PolkitAuthorization final : public Authorization {
 public:
    /// `program` is pkcheck(1) or what stands in for it.
    explicit PolkitAuthorization(Reporter reporter, std::string program = "/usr/bin/pkcheck");

    /// 0, the exit status of pkcheck (1 refused, 2 nobody can ask, 3 dismissed, 127 an error), or
    /// EINVAL for a right that is no action id, or why pkcheck cannot be run as an errno.
    [[nodiscard]] int obtainRight(const std::string& right, const std::string& rule) override;

 private:
    OnceReporter reporter_;
    std::string program_;
};

}  // namespace platform

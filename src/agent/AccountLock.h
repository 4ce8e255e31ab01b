#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/FileDescriptor.h"

namespace orv {

/// Held by the one agent of an account: an exclusive lock (flock(2)) on a file of the user's cache
/// folder, which ends with the process however that ends.
class AccountLock {
 public:
    /// The agents of one account, "0" and "1" being one, exclude each other. None, and why, when
    /// another has it.
    [[nodiscard]] static std::optional<AccountLock> take(std::string_view accountId,
                                                         std::string& error);

 private:
    explicit AccountLock(platform::FileDescriptor file) : file_(std::move(file)) {}

    platform::FileDescriptor file_;
};

}  // namespace orv

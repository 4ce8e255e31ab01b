#pragma once

#include "platform/AccessLists.h"

namespace platform {

/// POSIX access lists (acl(5)), which only allow. An entry's "r" reads, its "w" writes and appends,
/// and deletes children of a folder, its "x" executes or searches; so an entry needs
/// `WriteDataOrAddFile` to be written with "w". A file system without access lists has empty ones.
class PosixAccessLists final : public AccessLists {
 public:
    /// The rights are those in effect, within the file's mask.
    [[nodiscard]] std::optional<AccessList> read(const std::string& path) override;
    /// An entry replaces the file's own of the same user or group. No entry that was there gains a
    /// right by the new mask.
    [[nodiscard]] int write(const std::string& path, const AccessList& list) override;
};

}  // namespace platform

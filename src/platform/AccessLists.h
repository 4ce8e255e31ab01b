#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Rights of an access list entry, as bits. Each has one meaning for files and one for folders.
enum AccessRight : std::uint32_t {
    ReadDataOrListDirectory = 1U << 0U,
    WriteDataOrAddFile = 1U << 1U,
    ExecuteOrSearch = 1U << 2U,
    AppendDataOrAddSubdirectory = 1U << 3U,
    DeleteChild = 1U << 4U,
    Delete = 1U << 5U,
};

struct AccessEntry {
    enum class Kind { Allow, Deny };
    enum class Qualifier { User, Group };

    Kind kind = Kind::Allow;
    Qualifier qualifier = Qualifier::User;
    /// The user's or group's number, and its name where the system knows one.
    std::uint32_t id = 0;
    std::string name;
    /// `AccessRight` bits.
    std::uint32_t rights = 0;

    bool operator==(const AccessEntry&) const = default;
};

using AccessList = std::vector<AccessEntry>;

/// The entries for named users and groups beyond a file's mode. Any thread.
class AccessLists {
 public:
    virtual ~AccessLists() = default;

    /// Empty when the file has only its mode. None when it cannot be asked; errno says why.
    [[nodiscard]] virtual std::optional<AccessList> read(const std::string& path) = 0;
    /// Adds the entries to the file's mode. What the system cannot express, and an entry without
    /// rights, is left out; when nothing remains the file stays untouched. 0 or an errno.
    [[nodiscard]] virtual int write(const std::string& path, const AccessList& list) = 0;
};

}  // namespace platform

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/FileDescriptor.h"

namespace quelm::os {

enum class EntryKind { File, Folder, Link, Other };

/// Reads what is in one folder after the other, with as few calls of the system as there can be
/// and no memory for any entry. One thread at a time; one reader serves many folders.
class EntryReader {
 public:
    struct Entry {
        /// Neither "." nor ".."; any bytes but "/" and NUL, ended by a NUL; valid until the next
        /// call.
        std::string_view name;
        /// Other as well where the kind cannot be found out.
        EntryKind kind;
    };
    struct Status {
        EntryKind kind;
        /// In bytes.
        std::uint64_t size;
        /// Of the file system that it is in.
        std::uint64_t device;
    };

    EntryReader();

    // Both close what was open, and answer false, with errno, for what is no folder that can be
    // opened.
    /// Follows links.
    bool open(const char* path);
    /// A folder in another one, which is an open descriptor, or at an absolute path. A link in its
    /// place fails.
    bool openChild(int folder, const char* name);

    /// None at the end; what cannot be read ends it, too.
    [[nodiscard]] std::optional<Entry> next();
    /// Of an entry, links not followed; none with errno. No network server is asked for what is
    /// known of it.
    [[nodiscard]] std::optional<Status> status(const char* name) const;
    /// Of the open folder itself.
    [[nodiscard]] std::optional<Status> status() const;

    /// The open folder, given away: this has none any more.
    [[nodiscard]] platform::FileDescriptor release();

 private:
    bool start(int fd);
    bool fill();

    platform::FileDescriptor folder_;
    std::unique_ptr<std::byte[]> buffer_;
    std::size_t at_ = 0;
    std::size_t end_ = 0;
};

}  // namespace quelm::os

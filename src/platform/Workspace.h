#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What the desktop takes a file or folder for, as bits.
enum ItemFlag : std::uint32_t {
    /// A folder that stands for one document.
    PackageItem = 2,
    ApplicationItem = 4,
    /// Any folder, packages too.
    ContainerItem = 8,
    InvisibleItem = 64,
};

/// What the desktop knows about files, and what it opens and starts. Any thread.
class Workspace {
 public:
    virtual ~Workspace() = default;

    /// The folder that holds the user's trashed files, made when missing; none when it cannot be.
    [[nodiscard]] virtual std::optional<std::string> trashFolder() = 0;
    /// Notes where a file that now lies at `trashedPath` came from, so that the desktop can
    /// restore it. Best effort.
    virtual void recordTrashed(const std::string& originalPath, const std::string& trashedPath) = 0;
    /// The file's uniform type ("com.microsoft.word.doc") where the system knows one, else its
    /// MIME type; none for what cannot be read.
    [[nodiscard]] virtual std::optional<std::string> contentType(const std::string& path) = 0;

    /// ItemFlag bits of a folder of that name; asks no disk.
    [[nodiscard]] virtual std::uint32_t folderFlags(std::string_view name) = 0;
    /// The names that a folder asks the desktop to hide.
    [[nodiscard]] virtual std::vector<std::string> hiddenNames(const std::string& folder) = 0;

    // Each returns without waiting for what it starts: true says only that it was started.

    /// In the program for it: an address with the scheme http, https, mailto or orv. Any other is
    /// refused.
    virtual bool openAddress(const std::string& address) = 0;
    /// In the file manager, or the program for that type of file.
    virtual bool openPath(const std::string& path) = 0;
    /// A program, by path or by name, and its arguments. It outlives this process and shares no
    /// terminal and no open file with it.
    virtual bool startProgram(const std::vector<std::string>& words) = 0;
};

}  // namespace platform

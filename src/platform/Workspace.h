#pragma once

#include <optional>
#include <string>

namespace platform {

/// What the desktop knows about files. Any thread.
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
};

}  // namespace platform

#pragma once

#include "platform/Services.h"
#include "platform/Workspace.h"
#include "platform/linux/FileTypeDatabase.h"

namespace platform {

/// The user's own trash as freedesktop.org lays it out, below XDG_DATA_HOME or HOME, and the
/// system's database of file types.
class DesktopWorkspace final : public Workspace {
 public:
    explicit DesktopWorkspace(Reporter reporter = {});

    [[nodiscard]] std::optional<std::string> trashFolder() override;
    /// Only of what lies directly in `trashFolder`; a note that is there already stays.
    void recordTrashed(const std::string& originalPath, const std::string& trashedPath) override;
    /// Looks into regular files only.
    [[nodiscard]] std::optional<std::string> contentType(const std::string& path) override;

 private:
    FileTypeDatabase fileTypes_;
};

}  // namespace platform

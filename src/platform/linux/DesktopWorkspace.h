#pragma once

#include "platform/Services.h"
#include "platform/Workspace.h"
#include "platform/linux/FileTypeDatabase.h"

namespace platform {

/// The user's own trash as freedesktop.org lays it out, below XDG_DATA_HOME or HOME, the system's
/// database of file types, and xdg-open, found by PATH. The reporter is told of what does not open,
/// but never an address, which may hold a secret.
class DesktopWorkspace final : public Workspace {
 public:
    explicit DesktopWorkspace(Reporter reporter = {});

    [[nodiscard]] std::optional<std::string> trashFolder() override;
    /// Only of what lies directly in `trashFolder`; a note that is there already stays.
    void recordTrashed(const std::string& originalPath, const std::string& trashedPath) override;
    /// Looks into regular files only.
    [[nodiscard]] std::optional<std::string> contentType(const std::string& path) override;
    /// Folders of applications and bundles are told by their extensions.
    [[nodiscard]] std::uint32_t folderFlags(std::string_view name) override;
    /// From its file ".hidden", a name a line.
    [[nodiscard]] std::vector<std::string> hiddenNames(const std::string& folder) override;
    bool openAddress(const std::string& address) override;
    bool openPath(const std::string& path) override;
    bool startProgram(const std::vector<std::string>& words) override;

 private:
    bool open(const std::string& what);
    void report(const std::string& line) const;

    Reporter reporter_;
    FileTypeDatabase fileTypes_;
};

}  // namespace platform

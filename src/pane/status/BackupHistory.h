#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "foundation/threads/Background.h"

namespace orv {

/// When an account's backup was complete last, kept in "backup_history.plist" of its folder. Main
/// thread only; files are read and written in the background.
class BackupHistory {
 public:
    /// `folder` is the account's; the background outlives this.
    BackupHistory(const std::string& folder, quelm::Background& background);

    /// Reads the file and calls `loaded`.
    void load(std::function<void()> loaded);
    /// Seconds since 1970; none when it is not known.
    [[nodiscard]] std::optional<std::int64_t> lastComplete() const { return lastComplete_; }
    /// It is complete now. Written at most every ten minutes.
    void noteComplete(std::int64_t now);
    /// Writes what was noted and not yet written.
    void store();

    /// What the file of an account's folder says. Waits for its lock; any thread.
    [[nodiscard]] static std::optional<std::int64_t> read(const std::string& folder);

 private:
    std::string folder_;
    quelm::Background& background_;
    std::optional<std::int64_t> lastComplete_;
    std::optional<std::int64_t> stored_;
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
};

}  // namespace orv

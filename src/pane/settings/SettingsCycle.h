#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "accounts/Account.h"
#include "accounts/SettingsError.h"
#include "foundation/threads/Background.h"

namespace orv {

/// What the person changed in an account's settings, from the click to the file and the agent.
/// Nothing is lost on the way: what cannot be stored stays changed here, survives settings that are
/// read anew meanwhile, and is stored with the next change; what others wrote meanwhile stays. Main
/// thread only; files are written in the background.
class SettingsCycle {
 public:
    /// Makes the same change however often and on whichever thread it is called; it holds its
    /// values.
    using Edit = std::function<void(AccountRecords& records)>;
    using Failed = std::function<void(const SettingsError& error)>;

    /// Both outlive it. `failed` is told why something could not be stored.
    SettingsCycle(Account& account, quelm::Background& background, Failed failed);

    /// The agent that is told of changes: the account's own unless it is set.
    void setAgentId(std::string agentId) { agentId_ = std::move(agentId); }

    /// Changes the records at once, and marks what was changed by SettingsHint bits.
    void change(std::uint32_t hint, Edit edit);
    /// Stores what was changed and tells the agent; nothing when nothing was.
    void saveSettings();
    /// After the records were read anew: changes them again by what is not stored yet.
    void reapply();

    /// SettingsHint bits of what is changed and not stored.
    [[nodiscard]] std::uint32_t modified() const;

 private:
    struct Job;

    static std::optional<SettingsError> store(Job& job);
    void finished();

    Account& account_;
    quelm::Background& background_;
    Failed failed_;
    std::string agentId_;
    std::uint32_t _modified = 0;
    std::vector<Edit> edits_;
    /// Null while nothing is being stored.
    std::shared_ptr<Job> storing_;
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
};

/// Makes the folder with mode 0700 unless it is there. None when it then is; else why not.
[[nodiscard]] std::optional<SettingsError> checkApplicationDirectory(const std::string& folder);

}  // namespace orv

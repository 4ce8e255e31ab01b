#include "pane/settings/SettingsCycle.h"

#include <cerrno>
#include <filesystem>
#include <fmt/format.h>
#include <sys/stat.h>
#include <utility>

#include "agentlink/AgentNotifications.h"
#include "agentlink/AgentVocabulary.h"
#include "config/Locations.h"
#include "foundation/files/Existence.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

constexpr mode_t privateFolder = 0700;

SettingsError posixError(const std::string& path, std::string description) {
    return {.domain = SettingsError::posixDomain,
            .code = errno,
            .description = std::move(description),
            .info = {},
            .filePath = path};
}

/// None when the file could be stored.
std::optional<SettingsError> storeError(bool isStored, const std::string& path) {
    if (isStored) return std::nullopt;
    return posixError(path, quelm::GetLocalizedString(
                                "PrefPane.NotStored",
                                "The settings cannot be stored. Your changes are kept until the "
                                "panel ends"));
}

std::optional<SettingsError> storeRecords(AccountRecords& records, std::uint32_t hint,
                                          const std::string& folder) {
    if (auto error = checkApplicationDirectory(folder)) return error;
    errno = 0;
    if (hint & ~std::uint32_t{HintBackupSelection}) {
        auto error = storeError(records.agentSettings.store(), folder + "/" + files::userInfo);
        if (error) return error;
    }
    if (!(hint & HintBackupSelection)) return std::nullopt;
    return storeError(records.storageSettings.store(), folder + "/" + files::storageInfo);
}

}  // namespace

struct SettingsCycle::Job {
    AccountRecords records;
    std::uint32_t hint;
    std::optional<SettingsError> error = {};
};

SettingsCycle::SettingsCycle(Account& account, quelm::Background& background, Failed failed)
    : account_(account),
      background_(background),
      failed_(std::move(failed)),
      agentId_(account.agentID()) {}

void SettingsCycle::change(std::uint32_t hint, Edit edit) {
    edit(account_.records());
    edits_.push_back(std::move(edit));
    _modified |= hint;
}

void SettingsCycle::saveSettings() {
    if (_modified == 0 || storing_ != 0) return;
    storing_ = std::exchange(_modified, 0);
    storingEdits_ = std::exchange(edits_, {});
    auto job = std::make_shared<Job>(Job{account_.records(), storing_});
    background_.perform(
        [job, folder = account_.accountFolderPath()] {
            job->error = storeRecords(job->records, job->hint, folder);
        },
        [this, life = std::weak_ptr(life_), job] {
            if (!life.expired()) finished(*job);
        });
}

/// What failed waits for the next change: to try again by itself could show its error for ever.
void SettingsCycle::finished(const Job& job) {
    const std::uint32_t stored = std::exchange(storing_, 0);
    auto edits = std::exchange(storingEdits_, {});
    if (!job.error) {
        NotifyAgentSettingsChanged(agentId_, stored);
        return saveSettings();
    }
    _modified |= stored;
    edits.insert(edits.end(), edits_.begin(), edits_.end());
    edits_ = std::move(edits);
    failed_(*job.error);
}

void SettingsCycle::reapply() {
    for (const Edit& edit : storingEdits_)
        edit(account_.records());
    for (const Edit& edit : edits_)
        edit(account_.records());
}

std::optional<SettingsError> checkApplicationDirectory(const std::string& folder) {
    if (quelm::IsFolder(folder)) return std::nullopt;
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(folder).parent_path(), ignored);
    if (::mkdir(folder.c_str(), privateFolder) == 0) return std::nullopt;
    const SettingsError error = posixError(
        folder, quelm::GetLocalizedString("PrefPane.ConfFolderError",
                                          "Cannot create the base directory for settings"));
    quelm::LogError(fmt::format("Cannot create base directory: {}, attributes: {}, errno: {}",
                                folder, "mode 0700", error.code));
    return error;
}

}  // namespace orv

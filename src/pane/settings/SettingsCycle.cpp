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

SettingsError posixError(int code, const std::string& path, std::string description) {
    return {.domain = SettingsError::posixDomain,
            .code = code != 0 ? code : EIO,
            .description = std::move(description),
            .info = {},
            .filePath = path};
}

SettingsError notStored(int code, const std::string& path) {
    quelm::LogError(fmt::format("{} could not be stored, errno: {}", path, code));
    return posixError(code, path,
                      quelm::GetLocalizedString("PrefPane.NotStored",
                                                "The settings cannot be stored. Your changes are "
                                                "kept until the panel ends"));
}

std::optional<SettingsError> storeAgentSettings(orvAgentSettings& settings,
                                                const std::string& path) {
    errno = 0;
    if (settings.store()) return std::nullopt;
    return notStored(errno, path);
}

/// Storing a selection only tells whether its file could be opened, so it is read again.
std::optional<SettingsError> storeSelection(const orv_StorageSettings& settings,
                                            const std::string& folder) {
    const std::string path = folder + "/" + files::storageInfo;
    errno = 0;
    const bool isOpened = settings.store();
    const int code = errno;
    orv_StorageSettings written(folder);
    if (isOpened && written.loadFromSpecificPath(path) &&
        written.topLevelPaths() == settings.topLevelPaths())
        return std::nullopt;
    return notStored(code, path);
}

}  // namespace

/// What is being stored. While it is, the background has the records and both threads only read
/// the rest.
struct SettingsCycle::Job {
    std::string folder;
    std::string agentId;
    std::uint32_t hint;
    std::vector<Edit> edits;
    AccountRecords records;
    std::optional<SettingsError> error = {};
};

/// What others wrote since the records were read stays: only the edits are made anew.
std::optional<SettingsError> SettingsCycle::store(Job& job) {
    if (auto error = checkApplicationDirectory(job.folder)) return error;
    static_cast<void>(job.records.agentSettings.load());
    static_cast<void>(job.records.storageSettings.load());
    for (const Edit& edit : job.edits)
        edit(job.records);
    if (job.hint & ~std::uint32_t{HintBackupSelection}) {
        auto error =
            storeAgentSettings(job.records.agentSettings, job.folder + "/" + files::userInfo);
        if (error) return error;
    }
    if (!(job.hint & HintBackupSelection)) return std::nullopt;
    return storeSelection(job.records.storageSettings, job.folder);
}

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
    if (_modified == 0 || storing_) return;
    storing_ = std::make_shared<Job>(Job{account_.accountFolderPath(), agentId_,
                                         std::exchange(_modified, 0), std::exchange(edits_, {}),
                                         account_.records()});
    background_.perform(
        [job = storing_] {
            job->error = store(*job);
            // from here, so that the agent hears of it also when the panel ends meanwhile
            if (!job->error) NotifyAgentSettingsChanged(job->agentId, job->hint);
        },
        [this, life = std::weak_ptr(life_)] {
            if (!life.expired()) finished();
        });
}

/// What failed waits for the next change: to try again by itself could show its error for ever.
void SettingsCycle::finished() {
    const std::shared_ptr<Job> job = std::exchange(storing_, nullptr);
    if (!job->error) return saveSettings();
    _modified |= job->hint;
    edits_.insert(edits_.begin(), job->edits.begin(), job->edits.end());
    failed_(*job->error);
}

void SettingsCycle::reapply() {
    if (storing_) {
        for (const Edit& edit : storing_->edits)
            edit(account_.records());
    }
    for (const Edit& edit : edits_)
        edit(account_.records());
}

std::uint32_t SettingsCycle::modified() const {
    return _modified | (storing_ ? storing_->hint : 0);
}

std::optional<SettingsError> checkApplicationDirectory(const std::string& folder) {
    if (quelm::IsFolder(folder)) return std::nullopt;
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(folder).parent_path(), ignored);
    if (::mkdir(folder.c_str(), privateFolder) == 0) return std::nullopt;
    const SettingsError error =
        posixError(errno, folder,
                   quelm::GetLocalizedString("PrefPane.ConfFolderError",
                                             "Cannot create the base directory for settings"));
    quelm::LogError(fmt::format("Cannot create base directory: {}, attributes: {}, errno: {}",
                                folder, "mode 0700", error.code));
    return error;
}

}  // namespace orv

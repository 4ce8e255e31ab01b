#include "pane/status/BackupHistory.h"

#include <utility>

#include "config/Locations.h"
#include "config/PropertyFiles.h"
#include "foundation/files/Existence.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

constexpr const char* lastCompleteKey = "last_complete";
/// How far the file may lie behind, in seconds.
constexpr std::int64_t storeInterval = 600;

std::string fileIn(const std::string& folder) {
    return folder + "/" + files::backupHistory;
}

}  // namespace

BackupHistory::BackupHistory(const std::string& folder, quelm::Background& background)
    : folder_(folder), background_(background) {}

std::optional<std::int64_t> BackupHistory::read(const std::string& folder) {
    const std::string path = fileIn(folder);
    if (!quelm::Exists(path)) return std::nullopt;
    const auto loaded = LoadPropertiesFromFile(path);
    const quelm::Dictionary* const history = loaded ? loaded->asDictionary() : nullptr;
    const quelm::Value* const value = history ? history->find(lastCompleteKey) : nullptr;
    const std::int64_t* const seconds = value ? value->asInteger() : nullptr;
    return seconds && *seconds > 0 ? std::optional(*seconds) : std::nullopt;
}

void BackupHistory::load(std::function<void()> loaded) {
    auto found = std::make_shared<std::optional<std::int64_t>>();
    background_.perform([folder = folder_, found] { *found = read(folder); },
                        [this, life = std::weak_ptr(life_), found, loaded = std::move(loaded)] {
                            if (life.expired()) return;
                            stored_ = *found;
                            if (!lastComplete_ || *found > lastComplete_) lastComplete_ = *found;
                            loaded();
                        });
}

void BackupHistory::noteComplete(std::int64_t now) {
    lastComplete_ = now;
    if (!stored_ || now < *stored_ || now - *stored_ >= storeInterval) store();
}

void BackupHistory::store() {
    if (!lastComplete_ || stored_ == lastComplete_) return;
    stored_ = lastComplete_;
    background_.perform(
        [path = fileIn(folder_), seconds = *lastComplete_] {
            if (!ChangePropertiesInFile(path, {{lastCompleteKey, seconds}}))
                quelm::LogWarning(path + " cannot be written: when the backup was complete last " +
                                  "will not be known after the panel ends.");
        },
        {});
}

}  // namespace orv

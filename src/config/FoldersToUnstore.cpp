#include "config/FoldersToUnstore.h"

#include <functional>
#include <unordered_set>
#include <utility>

#include "config/PropertyFiles.h"
#include "foundation/system/Log.h"
#include "foundation/texts/Utf8.h"

namespace orv {

namespace {

using quelm::Dictionary;
using quelm::DictionaryEntry;

bool edit(const std::string& file, const std::function<bool(Dictionary&)>& change) {
    return EditPropertiesInFile(file, change) != FileEdit::CannotOpen;
}

/// Keeps the entries that `stays` answers true for; whether one had to go.
template <typename Predicate>
bool keepOnly(Dictionary& folders, Predicate stays) {
    std::vector<DictionaryEntry> kept;
    for (const DictionaryEntry& entry : folders) {
        if (stays(entry)) kept.push_back(entry);
    }
    const bool removed = kept.size() < folders.size();
    folders = Dictionary(std::move(kept));
    return removed;
}

bool isNew(const DictionaryEntry& entry) {
    const bool* flag = entry.value.asBoolean();
    return !flag || *flag;
}

}  // namespace

bool AddFoldersToUnstore(const std::string& file, const std::vector<std::string>& paths) {
    return edit(file, [&paths](Dictionary& folders) {
        std::vector<DictionaryEntry> entries(folders.begin(), folders.end());
        for (const std::string& path : paths) {
            if (quelm::IsXmlText(path)) {
                entries.push_back({path, true});
            } else {
                quelm::LogWarning("the backup of " + path +
                                  " cannot be marked for removal: rename the folder to plain text");
            }
        }
        folders = Dictionary(std::move(entries));
        return true;
    });
}

bool RemoveFoldersToUnstore(const std::string& file, const std::vector<std::string>& paths) {
    const std::unordered_set<std::string_view> removed(paths.begin(), paths.end());
    return edit(file, [&removed](Dictionary& folders) {
        keepOnly(folders, [&removed](const auto& entry) { return !removed.contains(entry.key); });
        return true;
    });
}

std::optional<std::vector<std::string>> GetFoldersToUnstore(const std::string& file) {
    std::vector<std::string> paths;
    const bool opened = edit(file, [&paths](Dictionary& folders) {
        std::vector<DictionaryEntry> taken;
        for (const DictionaryEntry& entry : folders) {
            paths.push_back(entry.key);
            taken.push_back({entry.key, false});
        }
        folders = Dictionary(std::move(taken));
        return true;
    });
    return opened ? std::optional(std::move(paths)) : std::nullopt;
}

bool CommitUnstoreFolders(const std::string& file) {
    return edit(file, [](Dictionary& folders) { return keepOnly(folders, isNew); });
}

}  // namespace orv

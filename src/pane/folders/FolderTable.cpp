#include "pane/folders/FolderTable.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <utility>

#include "accounts/filters/FolderPatterns.h"
#include "accounts/filters/StorageExceptions.h"
#include "accounts/filters/VolumeFilters.h"
#include "config/VolumeFolders.h"
#include "foundation/files/Existence.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/LocalizedString.h"
#include "widgets/OfflineVolume.h"

namespace orv {

namespace {

/// The allowed ones, and behind them those that hold stored data all the same.
std::vector<std::string> listedPaths(std::uint32_t mask, const std::vector<std::string>& selected,
                                     const orv_StorageFoldersInfo& info) {
    std::vector<std::string> listed = FilterAllowedVolumePaths(mask, selected);
    const std::set<std::string> allowed(listed.begin(), listed.end());
    for (const std::string& path : selected) {
        if (!allowed.contains(path) && info.findInfoForPath(path)) listed.push_back(path);
    }
    return listed;
}

std::string shareOf(const std::string& path) {
    if (path == "/") return quelm::GetLocalizedString("PrefPane.FileSystem", "File System");
    return std::string(quelm::GetLastPathComponent(quelm::RemoveLastSlashFromPath(path)));
}

/// Of a path in a folder of volumes.
std::string volumeName(const std::string& path) {
    const std::size_t folder = FolderOfVolumes(path).size();
    const std::size_t start = path.find_first_not_of('/', folder);
    return start == path.npos ? path : path.substr(start, path.find('/', start) - start);
}

}  // namespace

struct FolderTable::Question {
    std::uint32_t mask;
    std::vector<std::string> selected;
    orv_StorageFoldersInfo info;
    std::string exceptionsFile;
};

FolderTable::FolderTable(TableView& table, quelm::Background& background,
                         std::function<void()> shown)
    : table_(table), background_(background), shown_(std::move(shown)) {
    table_.setDataSource(this);
}

FolderTable::~FolderTable() {
    table_.setDataSource(nullptr);
}

void FolderTable::loadStorageSettings(const AccountRecords& records,
                                      const std::string& exceptionsFile) {
    question_ = std::make_shared<const Question>(
        Question{AllowedVolumes(records.agentSettings), records.storageSettings.topLevelPaths(),
                 records.storageFoldersInfo, exceptionsFile});
    lookUps_.ask();
}

void FolderTable::startLookUp() {
    isOutdated_ = false;
    auto rows = std::make_shared<std::vector<Row>>();
    background_.perform([question = question_, rows] { *rows = lookUp(*question); },
                        [this, life = std::weak_ptr(life_), rows] {
                            if (life.expired()) return;
                            if (!isOutdated_) take(std::move(*rows));
                            lookUps_.finished();
                        });
}

std::vector<FolderTable::Row> FolderTable::lookUp(const Question& question) {
    const FolderPatterns excluded(ReadExcludedFolders(question.exceptionsFile));
    std::vector<Row> rows;
    for (const std::string& folder : listedPaths(question.mask, question.selected, question.info)) {
        const orv_StorageFolderStatus* const record = question.info.findInfoForPath(folder);
        FolderState state{.excluded = excluded.matches(folder),
                          .exists = quelm::Exists(folder),
                          .record = record};
        state.offline = !state.exists && IsPathOffline(folder);
        const bool isIncomplete = state.offline && (!record || !record->isBackedUp());
        rows.push_back({folder, shareOf(folder), FolderStatusText(state),
                        isIncomplete ? volumeName(folder) : std::string()});
    }
    return rows;
}

void FolderTable::take(std::vector<Row> rows) {
    offline_.clear();
    std::set<std::string> volumes;
    for (const Row& row : rows) {
        if (!row.missingVolume.empty() && volumes.insert(row.missingVolume).second)
            offline_.push_back(row.missingVolume);
    }
    if (rows != _storageSettingsArray) {
        const std::set<std::string> selected = selectedPaths();
        _storageSettingsArray = std::move(rows);
        table_.reloadData();
        table_.selectRows(rowsOf(selected));
    }
    shown_();
}

std::set<std::string> FolderTable::selectedPaths() const {
    std::set<std::string> paths;
    for (const std::size_t row : table_.selectedRows())
        paths.insert(_storageSettingsArray[row].path);
    return paths;
}

std::set<std::size_t> FolderTable::rowsOf(const std::set<std::string>& paths) const {
    std::set<std::size_t> rows;
    for (std::size_t i = 0; i < _storageSettingsArray.size(); ++i) {
        if (paths.contains(_storageSettingsArray[i].path)) rows.insert(i);
    }
    return rows;
}

void FolderTable::removeRows(const std::vector<std::string>& paths) {
    const std::set<std::string> removed(paths.begin(), paths.end());
    std::vector<Row> rows = _storageSettingsArray;
    std::erase_if(rows, [&removed](const Row& row) { return removed.contains(row.path); });
    isOutdated_ = true;
    take(std::move(rows));
}

std::vector<std::string> FolderTable::paths() const {
    std::vector<std::string> paths;
    for (const Row& row : _storageSettingsArray)
        paths.push_back(row.path);
    return paths;
}

std::size_t FolderTable::numberOfRowsInTableView(const TableView& table) const {
    return &table == &table_ ? _storageSettingsArray.size() : 0;
}

std::optional<std::string> FolderTable::objectValue(const TableView& table, std::string_view column,
                                                    std::size_t row) const {
    static constexpr std::array<std::pair<std::string_view, std::string Row::*>, 3> columns = {
        {{share, &Row::share}, {path, &Row::path}, {status, &Row::status}}};
    if (&table != &table_ || row >= _storageSettingsArray.size()) return std::nullopt;
    for (const auto& [name, member] : columns) {
        if (name == column) return _storageSettingsArray[row].*member;
    }
    return std::nullopt;
}

}  // namespace orv

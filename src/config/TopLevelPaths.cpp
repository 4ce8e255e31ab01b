#include "config/TopLevelPaths.h"

#include <algorithm>

#include "config/VolumeFolders.h"
#include "foundation/paths/PathPrefix.h"

namespace orv {

namespace {

bool isOnOtherVolume(std::string_view path) {
    return !FolderOfVolumes(path).empty();
}

bool isUnderRoot(std::string_view path) {
    return path.starts_with('/') && !isOnOtherVolume(path);
}

struct SelectedPath {
    std::string_view path;
    std::size_t row;
};

/// Sorted by path; of equal paths the last.
std::vector<SelectedPath> selectedPaths(const quelm::Array& rows) {
    std::vector<SelectedPath> selected;
    for (std::size_t i = rows.size(); i-- > 0;) {
        const auto row = SelectionRowOf(rows[i]);
        if (row && row->isSelected) selected.push_back({row->path, i});
    }
    std::ranges::stable_sort(selected, {}, &SelectedPath::path);
    const auto isSame = [](const auto& left, const auto& right) { return left.path == right.path; };
    selected.erase(std::unique(selected.begin(), selected.end(), isSame), selected.end());
    return selected;
}

/// Takes out what another path than "/" covers. In a sorted list a text is followed by all that
/// begin with it, so those texts that the present one begins with make a stack.
void removeNested(std::vector<SelectedPath>& selected) {
    std::vector<std::string_view> beginnings;
    std::erase_if(selected, [&beginnings](const SelectedPath& candidate) {
        const std::string_view path = candidate.path;
        while (!beginnings.empty() && !path.starts_with(beginnings.back()))
            beginnings.pop_back();
        const bool isNested = std::ranges::any_of(
            beginnings, [path](std::string_view above) { return path[above.size()] == '/'; });
        if (!isNested && path != "/") beginnings.push_back(path);
        return isNested;
    });
}

void removeUnderRoot(std::vector<SelectedPath>& selected) {
    if (std::ranges::find(selected, "/", &SelectedPath::path) == selected.end()) return;
    std::erase_if(selected, [](const SelectedPath& candidate) {
        return candidate.path != "/" && isUnderRoot(candidate.path);
    });
}

}  // namespace

std::optional<SelectionRow> SelectionRowOf(const quelm::Value& row) {
    const auto* cells = row.asArray();
    const auto* path = cells && cells->size() >= 2 ? (*cells)[0].asString() : nullptr;
    if (!path) return std::nullopt;
    const bool* flag = (*cells)[1].asBoolean();
    return SelectionRow{*path, flag && *flag};
}

std::vector<std::string> TopLevelPaths(const quelm::Array& rows) {
    auto selected = selectedPaths(rows);
    removeUnderRoot(selected);
    removeNested(selected);
    std::ranges::sort(selected, {}, &SelectedPath::row);
    std::vector<std::string> roots;
    roots.reserve(selected.size());
    for (const SelectedPath& root : selected)
        roots.emplace_back(root.path);
    return roots;
}

void RemoveTopLevelPath(quelm::Array& rows, std::string_view path) {
    std::erase_if(rows, [path](const quelm::Value& value) {
        const auto row = SelectionRowOf(value);
        if (!row) return false;
        return path == "/" ? !isOnOtherVolume(row->path) : quelm::StartsWithPath(row->path, path);
    });
}

}  // namespace orv

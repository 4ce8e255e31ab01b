#include "backup/selection/SelectionWalk.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "foundation/paths/Paths.h"

namespace orv {

namespace {

constexpr std::size_t mostNamed = 1'000;

FolderPlace placeOf(std::string path) {
    FolderPlace place;
    place.path = std::move(path);
    return place;
}

orv_FileSystemItem* loadedChild(orv_FileSystemItem* item, std::string_view name) {
    if (!item) return nullptr;
    bool isWhole = false;
    orv_FileSystemItem& found = item->findItemForSubpath(name, isWhole);
    return isWhole && found.relativePath() == name ? &found : nullptr;
}

bool holdsSelected(orv_FileSystemItem* item) {
    std::vector<orv_FileSystemItem*> selected;
    if (item) item->findTopLevelItems(selected);
    return !selected.empty();
}

/// Those of the subfolders that are selected or lead to one that is.
std::vector<SelectionStep> stepsBelow(const SelectionStep& step,
                                      std::vector<FolderPlace> subfolders) {
    std::vector<SelectionStep> below;
    for (FolderPlace& place : subfolders) {
        auto* const item = loadedChild(step.item, quelm::GetLastPathComponent(place.path));
        const bool isSelected = item ? item->checkFlag() : step.isSelected;
        if (isSelected || holdsSelected(item))
            below.push_back({std::move(place), item, isSelected});
    }
    return below;
}

}  // namespace

std::vector<SelectionStep> StepsOfSelection(FileSystemTree& tree) {
    std::vector<SelectionStep> steps;
    for (orv_FileSystemItem* const item : tree.findTopLevelItems())
        steps.push_back({placeOf(item->fullPath()), item, true});
    return steps;
}

SelectionStep StepOfFolder(std::string path) {
    return {placeOf(std::move(path)), nullptr, true};
}

UnreadFolders WalkSelection(std::vector<SelectionStep> steps, const ScannerFilters& filters,
                            const std::atomic<bool>& isStopped, const FolderVisitor& visit) {
    const auto reader = MakeFolderReader();
    UnreadFolders unread;
    std::ranges::reverse(steps);
    while (!steps.empty() && !isStopped) {
        const SelectionStep step = std::move(steps.back());
        steps.pop_back();
        auto reading = reader->read(step.place, filters, isStopped);
        if (!reading) {
            ++unread.count;
            if (unread.paths.size() < mostNamed) unread.paths.push_back(step.path());
            continue;
        }
        auto below = stepsBelow(step, std::move(reading->subfolders));
        visit(step, reading->totals, below);
        std::move(below.rbegin(), below.rend(), std::back_inserter(steps));
    }
    return unread;
}

}  // namespace orv

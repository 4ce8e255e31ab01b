#include "backup/sharing/SharingFacts.h"

#include <filesystem>
#include <system_error>

#include "backup/sharing/SharingRules.h"
#include "backup/tree/DiskCatalogue.h"
#include "backup/tree/MountPoints.h"
#include "backup/tree/TreeRootsOfComputer.h"
#include "config/Locations.h"
#include "config/TopLevelPaths.h"
#include "foundation/files/Existence.h"
#include "foundation/paths/Paths.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/system/Log.h"
#include "foundation/texts/VisibleText.h"

namespace orv {

namespace {

/// Each stored row, in order, with what leads to it opened.
void insertSelection(FileSystemTree& tree, const SharingRecords& account,
                     std::vector<std::string>& refused) {
    for (const quelm::Value& value : account.records.storageSettings.pathsAndFlags()) {
        const auto row = SelectionRowOf(value);
        if (!row) continue;
        auto* const item =
            tree.insertUserPath(row->path, row->isSelected, account.isStored(row->path));
        if (item) {
            item->expandToItem();
        } else {
            refused.emplace_back(row->path);
        }
    }
}

/// An empty file counts as one without settings.
bool isUnreadable(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error) return quelm::IsNameTaken(path);
    return size > 0 && !quelm::ReadPropertyListFile(path).value;
}

}  // namespace

void SharingRecords::load() {
    records.load();
    const bool areFilesRead = excludedFiles.loadExcludedFiles();
    areRecordsUnreadable = isUnreadable(folder + "/" + files::storageInfo);
    const bool areFiltersUnreadable = isUnreadable(folder + "/" + files::filterInfo);
    if (areRecordsUnreadable || areFiltersUnreadable || !areFilesRead) {
        areRecordsUnreadable = true;
        problem = quelm::FormatLocalizedString(
            "Sharing.Unreadable",
            "The stored selection, or the filters that belong to it, cannot be read, so neither "
            "can "
            "be changed here. Check the permissions of the files in %@, or restore them from a "
            "backup.",
            {folder});
    }
    filters = ScannerFilters::of(records.filterSettings);
}

PathSet UnscannedFolders(platform::Volumes& volumes,
                         const std::vector<std::string>& excludedVolumes) {
    PathSet folders(excludedVolumes.begin(), excludedVolumes.end());
    for (const platform::Volume& volume : VolumesInSight(volumes)) {
        if (volume.pseudo) folders.insert(volume.mountPoint);
    }
    return folders;
}

bool SharingTree::isUnscanned(std::string_view path) const {
    for (; path.size() > 1; path = quelm::RemoveLastPathComponent(path)) {
        if (unscannedFolders.contains(path)) return true;
    }
    return false;
}

SharingTree BuildSharingTree(const SharingRecords& account, platform::Services& services) {
    DiskCatalogue disk(*services.workspace, *services.volumes);
    TreeRules rules = RulesOfAccount(account.records.agentSettings);
    SharingTree made;
    made.unscannedFolders = UnscannedFolders(*services.volumes, rules.excludedVolumes);
    made.catalogue = std::make_unique<PreparedCatalogue>(disk);
    made.tree = std::make_unique<FileSystemTree>(
        *made.catalogue, RootsOfComputer(*services.volumes, quelm::ExpandTildeInPath("~")),
        std::move(rules));
    for (auto* root : made.tree->getRootItems())
        static_cast<void>(root->isDirectoryOrVolume());  // asks what it is while there is a disk
    insertSelection(*made.tree, account, made.refused);
    for (const std::string& path : made.refused)
        quelm::LogWarning("Not shown, and given up when the selection is stored: " +
                          quelm::VisibleText(path.substr(0, 200)));
    made.catalogue->close();
    return made;
}

}  // namespace orv

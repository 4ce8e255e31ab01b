#include "cli/StoredSelection.h"

#include <cstdlib>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "agentlink/AgentVocabulary.h"
#include "backup/sharing/SharingRules.h"
#include "backup/tree/TreeRootsOfComputer.h"
#include "cli/Complaint.h"
#include "cli/ReadableFile.h"
#include "cli/SettingsAsStored.h"
#include "cli/SettingsChange.h"
#include "cli/ValueText.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "config/TopLevelPaths.h"
#include "foundation/paths/PathPrefix.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/LocalizedString.h"
#include "platform/Services.h"

namespace orv::cli {

namespace {

/// Whether the file now says the same; storing itself tells a failure only in the log.
bool storeAndCheck(const orv_StorageSettings& selection) {
    MakeConfigurationFolder();
    orv_StorageSettings stored(GetConfigurationPath());
    return selection.store() && stored.load() && stored.isEqualToAgentSettings(selection);
}

}  // namespace

std::optional<orv_StorageSettings> LoadSelection(Console& console) {
    const std::string folder = GetConfigurationPath();
    if (!IsAbsentOrReadable(folder + "/" + files::storageInfo, quelm::Value::Type::Array,
                            console)) {
        return std::nullopt;
    }
    std::optional<orv_StorageSettings> selection(folder);
    selection->load();
    return selection;
}

SelectionTree::SelectionTree(const orv_StorageSettings& selection)
    : catalogue_(*platform::ProcessServices().workspace, *platform::ProcessServices().volumes),
      tree_(catalogue_,
            RootsOfComputer(*platform::ProcessServices().volumes, quelm::ExpandTildeInPath("~")),
            RulesOfAccount(SettingsAsStored())) {
    for (const quelm::Value& value : selection.pathsAndFlags()) {
        if (const auto row = SelectionRowOf(value))
            tree_.insertUserPath(row->path, row->isSelected, true);
    }
}

orv_FileSystemItem* SelectionTree::find(const std::string& path) {
    auto* const root = tree_.findRootItemForPath(path);
    const std::string above = root ? root->fullPath() : "";
    if (!root || !quelm::StartsWithPath(path, above)) return nullptr;
    return root->createSubpath(std::string_view(path).substr(above.size()));
}

ExitCode StoreSelection(SelectionTree& tree, const orv_StorageSettings& before, Console& console) {
    auto selection = LoadSelection(console);
    if (!selection) return ExitCode::Failed;
    if (!selection->isEqualToAgentSettings(before)) {
        return Fail(console, ExitCode::Failed,
                    quelm::GetLocalizedString("Folders.ChangedMeanwhile",
                                              "The selection was changed by somebody else at the "
                                              "same time and stays so. Try again."));
    }
    selection->setPathsAndFlags(tree.tree().getPathsAndFlags());
    if (!storeAndCheck(*selection)) {
        return Fail(console, ExitCode::Failed,
                    quelm::FormatLocalizedString(
                        "Folders.NotStored",
                        "The selection could not be stored in %@. See whether the folder is there "
                        "and can be written, and the disk is not full.",
                        {GetConfigurationPath()}));
    }
    if (console.json) fmt::print(console.out, "{}\n", ValueAsJson(selection->pathsAndFlags()));
    AnnounceSettingsChange(HintBackupSelection, console);
    return ExitCode::Done;
}

}  // namespace orv::cli

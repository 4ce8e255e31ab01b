#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/PathArgument.h"
#include "cli/StoredSelection.h"
#include "cli/ValueText.h"
#include "foundation/files/Existence.h"
#include "foundation/paths/PathPrefix.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/texts/Utf8.h"
#include "foundation/texts/VisibleText.h"

namespace orv::cli {

namespace {

using quelm::FormatLocalizedString;
using quelm::LocalizedText;

constexpr LocalizedText noFolder{"Folders.NoFolder",
                                 "%@ is no folder. Name a folder that is there."};
constexpr LocalizedText wholeComputer{
    "Folders.WholeComputer",
    "%@ is the whole computer, which cannot be selected as such. Name the folders in it."};
constexpr LocalizedText notStorable{
    "Folders.NotStorable",
    "%@ cannot be stored: its name is not UTF-8 or holds control characters. Rename it first."};
constexpr LocalizedText excludedVolume{
    "Folders.ExcludedVolume",
    "%@ is on a volume of a kind that this account does not back up. See orvctl settings list, the "
    "keys that end in drive_share."};
constexpr LocalizedText excludedByServer{
    "Folders.ExcludedByServer",
    "%@ is left out by an expression of the server. See storage_exceptions.xml in the folder that "
    "orvctl config path names."};
constexpr LocalizedText projects{"Folders.Projects",
                                 "%@ holds the projects, which are synced and not backed up."};
constexpr LocalizedText notShown{
    "Folders.NotShown",
    "%@ is never backed up: it or a folder above it is hidden, stands for one document or program, "
    "or cannot be read."};
constexpr LocalizedText notSelected{"Folders.NotSelected",
                                    "Nothing in %@ is selected. See orvctl folders roots."};

/// Why no folder at the path can be selected, whatever is stored; null when one can.
const LocalizedText* faultOfPath(const std::string& path) {
    if (path == "/") return &wholeComputer;
    if (!quelm::IsFolder(path)) return &noFolder;
    return quelm::IsXmlText(path) ? nullptr : &notStorable;
}

/// Whether an expression excludes the folder or one that it is in.
bool isExcludedByServer(const FileSystemTree& tree, std::string_view path) {
    for (; !path.empty(); path = quelm::RemoveLastPathComponent(path)) {
        if (tree.isPathExcluded(path)) return true;
    }
    return false;
}

/// Why the tree has no check box for an existing folder; null when it has.
const LocalizedText* faultOfItem(const FileSystemTree& tree, const orv_FileSystemItem* item,
                                 const std::string& path) {
    if (tree.isVolumeExcluded(path)) return &excludedVolume;
    if (isExcludedByServer(tree, path)) return &excludedByServer;
    const std::string& synced = tree.rules().excludedPath;
    if (!synced.empty() && quelm::StartsWithPath(path, synced)) return &projects;
    return item && item->isCheckable() && !item->isMissing() ? nullptr : &notShown;
}

ExitCode refuse(Console& console, const LocalizedText& reason, const std::string& path) {
    return Fail(console, ExitCode::Failed,
                FormatLocalizedString(reason.key, reason.defaultText, {quelm::VisibleText(path)}));
}

/// For what was so already: nothing is stored or announced.
ExitCode nothingToChange(Console& console, SelectionTree& selection, const std::string& message) {
    if (console.json)
        fmt::print(console.out, "{}\n", ValueAsJson(selection.tree().getPathsAndFlags()));
    return Fail(console, ExitCode::Done, message);
}

}  // namespace

ExitCode AddFolder(const Arguments& arguments, Console& console) {
    const std::string path = PathOfFolder(arguments[0]);
    if (const auto* const fault = faultOfPath(path)) return refuse(console, *fault, path);
    const auto stored = LoadSelection(console);
    if (!stored) return ExitCode::Failed;
    SelectionTree selection(*stored);
    orv_FileSystemItem* const item = selection.find(path);
    if (const auto* const fault = faultOfItem(selection.tree(), item, path))
        return refuse(console, *fault, path);
    if (item->checkFlag()) {
        return nothingToChange(
            console, selection,
            FormatLocalizedString("Folders.AlreadySelected", "%@ is selected already",
                                  {quelm::VisibleText(path)}));
    }
    item->changeStoreFlag(true);
    return StoreSelection(selection, *stored, console);
}

ExitCode RemoveFolder(const Arguments& arguments, Console& console) {
    const std::string path = PathOfFolder(arguments[0]);
    if (path == "/") return refuse(console, wholeComputer, path);
    const auto stored = LoadSelection(console);
    if (!stored) return ExitCode::Failed;
    SelectionTree selection(*stored);
    std::vector<orv_FileSystemItem*> selected;
    if (auto* const item = selection.find(path)) item->findTopLevelItems(selected);
    if (selected.empty()) return refuse(console, notSelected, path);
    for (orv_FileSystemItem* const item : selected)
        item->changeStoreFlag(false);
    return StoreSelection(selection, *stored, console);
}

}  // namespace orv::cli

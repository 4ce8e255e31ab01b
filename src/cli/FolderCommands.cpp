#include <fmt/format.h>
#include <fmt/ostream.h>
#include <optional>
#include <ostream>

#include "cli/Commands.h"
#include "cli/ReadableFile.h"
#include "cli/ValueText.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "config/StorageSettings.h"
#include "config/TopLevelPaths.h"
#include "foundation/system/LocalizedString.h"

namespace orv::cli {

namespace {

/// None, after a message, when there is a selection that cannot be read.
std::optional<orv_StorageSettings> loadSelection(Console& console) {
    const std::string folder = GetConfigurationPath();
    if (!IsAbsentOrReadable(folder + "/" + files::storageInfo, quelm::Value::Type::Array,
                            console)) {
        return std::nullopt;
    }
    std::optional<orv_StorageSettings> selection(folder);
    selection->load();
    return selection;
}

}  // namespace

ExitCode ShowFolderRoots(const Arguments&, Console& console) {
    const auto selection = loadSelection(console);
    if (!selection) return ExitCode::Failed;
    const auto roots = selection->topLevelPaths();
    if (console.json) {
        fmt::print(console.out, "{}\n", ValueAsJson(quelm::Array(roots.begin(), roots.end())));
    } else {
        for (const std::string& root : roots)
            fmt::print(console.out, "{}\n", root);
    }
    return ExitCode::Done;
}

ExitCode ShowFolderRows(const Arguments&, Console& console) {
    const auto selection = loadSelection(console);
    if (!selection) return ExitCode::Failed;
    quelm::Array rows;
    for (const quelm::Value& value : selection->pathsAndFlags()) {
        const auto row = SelectionRowOf(value);
        if (!row) continue;
        if (console.json) {
            rows.emplace_back(quelm::Array{row->path, row->isSelected});
        } else {
            fmt::print(console.out, "{} {}\n", row->isSelected ? '+' : '-', row->path);
        }
    }
    if (console.json) fmt::print(console.out, "{}\n", ValueAsJson(rows));
    return ExitCode::Done;
}

}  // namespace orv::cli

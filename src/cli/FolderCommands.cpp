#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "cli/Commands.h"
#include "cli/StoredSelection.h"
#include "cli/ValueText.h"
#include "config/TopLevelPaths.h"

namespace orv::cli {

ExitCode ShowFolderRoots(const Arguments&, Console& console) {
    const auto selection = LoadSelection(console);
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
    const auto selection = LoadSelection(console);
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

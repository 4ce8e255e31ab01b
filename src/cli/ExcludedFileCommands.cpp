#include <filesystem>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <optional>
#include <ostream>
#include <string>

#include "agentlink/AgentVocabulary.h"
#include "backup/sharing/ExcludedFiles.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/PathArgument.h"
#include "cli/ReadableFile.h"
#include "cli/SettingsChange.h"
#include "cli/ValueText.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/texts/VisibleText.h"

namespace orv::cli {

namespace {

using quelm::FormatLocalizedString;

/// None, after a message, when there is a list that cannot be read.
std::optional<ExcludedFiles> loadList(Console& console) {
    if (!IsAbsentOrReadable(GetConfigurationPath(files::excludedFiles), quelm::Value::Type::Array,
                            console)) {
        return std::nullopt;
    }
    std::optional<ExcludedFiles> list(GetConfigurationPath());
    return list->loadExcludedFiles() ? list : std::nullopt;
}

/// Links are none: they are never backed up.
bool isRegularFile(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(std::filesystem::symlink_status(path, ignored));
}

void printAsJson(const ExcludedFiles& list, Console& console) {
    const auto& paths = list.paths();
    fmt::print(console.out, "{}\n", ValueAsJson(quelm::Array(paths.begin(), paths.end())));
}

/// Stores the changed list, shows it with --json, and tells the agent.
ExitCode storeList(ExcludedFiles& list, Console& console) {
    MakeConfigurationFolder();
    if (!list.saveExcludedFiles()) {
        return Fail(console, ExitCode::Failed,
                    FormatLocalizedString("Excluded.NotStored",
                                          "The excluded files could not be stored in %@. See "
                                          "whether the folder is there and can be written, and the "
                                          "disk is not full.",
                                          {GetConfigurationPath()}));
    }
    if (console.json) printAsJson(list, console);
    AnnounceSettingsChange(HintExcludedFiles, console);
    return ExitCode::Done;
}

}  // namespace

ExitCode ListExcludedFiles(const Arguments&, Console& console) {
    const auto list = loadList(console);
    if (!list) return ExitCode::Failed;
    if (console.json) {
        printAsJson(*list, console);
    } else {
        for (const std::string& path : list->paths())
            fmt::print(console.out, "{}\n", quelm::VisibleText(path));
    }
    return ExitCode::Done;
}

ExitCode AddExcludedFile(const Arguments& arguments, Console& console) {
    const std::string path = PathOfFile(arguments[0]);
    const std::string shown = quelm::VisibleText(path);
    if (!isRegularFile(path)) {
        return Fail(console, ExitCode::Failed,
                    FormatLocalizedString("Excluded.NoFile",
                                          "%@ is no file. Name one that is there; folders are left "
                                          "out with orvctl folders remove.",
                                          {shown}));
    }
    auto list = loadList(console);
    if (!list) return ExitCode::Failed;
    if (list->contains(path)) {
        if (console.json) printAsJson(*list, console);
        return Fail(console, ExitCode::Done,
                    FormatLocalizedString("Excluded.Already", "%@ is excluded already", {shown}));
    }
    if (!list->add(path)) {
        return Fail(console, ExitCode::Failed,
                    FormatLocalizedString("Excluded.NotStorable",
                                          "%@ cannot be stored: its path is not UTF-8, holds "
                                          "control characters or is too long. Rename it first.",
                                          {shown}));
    }
    return storeList(*list, console);
}

ExitCode RemoveExcludedFile(const Arguments& arguments, Console& console) {
    auto list = loadList(console);
    if (!list) return ExitCode::Failed;
    // as it is listed, or as it lies on the disk
    if (!list->remove(arguments[0]) && !list->remove(PathOfFile(arguments[0]))) {
        return Fail(console, ExitCode::Failed,
                    FormatLocalizedString("Excluded.Unknown",
                                          "%@ is not among the excluded files. See orvctl excluded "
                                          "list.",
                                          {quelm::VisibleText(arguments[0])}));
    }
    return storeList(*list, console);
}

}  // namespace orv::cli

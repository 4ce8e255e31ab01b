#include <chrono>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include "accounts/filters/FilterSettings.h"
#include "backup/selection/SelectionWalk.h"
#include "backup/sharing/SharingFacts.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/PathArgument.h"
#include "cli/ReadableFile.h"
#include "cli/StoredSelection.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/files/Existence.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/texts/VisibleText.h"
#include "platform/Services.h"
#include "widgets/SizeText.h"

namespace orv::cli {

namespace {

using nlohmann::json;
using quelm::FormatLocalizedString;

/// How far the scan is, on a terminal only.
class ScanProgress {
 public:
    explicit ScanProgress(Console& console)
        : console_(console), isShown_(&console.err == &std::cerr && ::isatty(STDERR_FILENO) == 1) {}
    ScanProgress(const ScanProgress&) = delete;
    ScanProgress& operator=(const ScanProgress&) = delete;
    ~ScanProgress() {
        if (isShown_) fmt::print(console_.err, "{}", clearLine);
    }

    void show(std::uint64_t folders, std::uint64_t bytes) {
        constexpr std::chrono::milliseconds interval(200);
        const auto now = std::chrono::steady_clock::now();
        if (!isShown_ || now - last_ < interval) return;
        last_ = now;
        fmt::print(console_.err, "{}{}", clearLine,
                   FormatLocalizedString("Scan.Progress", "%lu folders, %@",
                                         {folders, FileSizeText(bytes)}));
        console_.err.flush();
    }

 private:
    static constexpr std::string_view clearLine = "\r\x1b[K";

    Console& console_;
    bool isShown_;
    std::chrono::steady_clock::time_point last_;
};

/// Prints each folder as it is scanned, and the totals at the end.
class ScanPrinter {
 public:
    explicit ScanPrinter(Console& console) : console_(console), progress_(console) {
        if (console.json) fmt::print(console.out, "{{\"folders\":[");
    }

    void add(const std::string& path, const FolderTotals& totals) {
        bytes_ += totals.size;
        files_ += totals.files;
        if (console_.json) {
            const json object = {{"path", path},
                                 {"bytes", totals.size},
                                 {"files", totals.files},
                                 {"types", totals.filterSize}};
            fmt::print(console_.out, "{}{}", folders_ == 0 ? "" : ",",
                       object.dump(-1, ' ', false, json::error_handler_t::replace));
        } else {
            fmt::print(console_.out, "{:>10} {:>8} {}\n", FileSizeText(totals.size), totals.files,
                       quelm::VisibleText(path));
        }
        progress_.show(++folders_, bytes_);
    }
    void finish() {
        if (console_.json) {
            fmt::print(console_.out, "],\"bytes\":{},\"files\":{}}}\n", bytes_, files_);
            return;
        }
        fmt::print(console_.out, "{}\n",
                   FormatLocalizedString("Scan.Total", "%@ in %lu files and %lu folders",
                                         {FileSizeText(bytes_), files_, folders_}));
    }

 private:
    Console& console_;
    ScanProgress progress_;
    std::uint64_t folders_ = 0;
    std::uint64_t bytes_ = 0;
    std::uint64_t files_ = 0;
};

/// None, after a message, when there are filters that cannot be read.
std::optional<ScannerFilters> loadFilters(const TreeRules& rules, Console& console) {
    if (!IsAbsentOrReadable(GetConfigurationPath(files::filterInfo), quelm::Value::Type::Dictionary,
                            console)) {
        return std::nullopt;
    }
    orv_FilterSettings settings(GetConfigurationPath());
    settings.load();
    ScannerFilters filters = ScannerFilters::of(settings);
    filters.unscannedFolders =
        UnscannedFolders(*platform::ProcessServices().volumes, rules.excludedVolumes);
    return filters;
}

/// None, after a message, when one is no folder.
std::optional<std::vector<SelectionStep>> stepsOfPaths(const std::vector<std::string>& words,
                                                       Console& console) {
    std::vector<SelectionStep> steps;
    for (const std::string& word : words) {
        const std::string path = PathOfFolder(word);
        if (!quelm::IsFolder(path)) {
            Say(console, FormatLocalizedString("Folders.NoFolder",
                                               "%@ is no folder. Name a folder that is there.",
                                               {quelm::VisibleText(path)}));
            return std::nullopt;
        }
        steps.push_back(StepOfFolder(path));
    }
    return steps;
}

}  // namespace

ExitCode ScanFolders(const Arguments& arguments, Console& console) {
    const auto stored = LoadSelection(console);
    if (!stored) return ExitCode::Failed;
    SelectionTree selection(*stored);
    const auto filters = loadFilters(selection.tree().rules(), console);
    if (!filters) return ExitCode::Failed;
    auto steps = arguments.empty() ? std::optional(StepsOfSelection(selection.tree()))
                                   : stepsOfPaths(arguments.words(), console);
    if (!steps) return ExitCode::Failed;
    std::uint64_t unread = 0;
    {
        ScanPrinter printer(console);
        const auto print = [&printer](const SelectionStep& folder, const FolderTotals& found,
                                      std::span<const SelectionStep> /*subfolders*/) {
            if (folder.isSelected) printer.add(folder.path(), found);
        };
        unread = WalkSelection(std::move(*steps), *filters, false, print).count;
        printer.finish();
    }
    if (unread == 0) return ExitCode::Done;
    return Fail(console, ExitCode::Done,
                FormatLocalizedString(
                    "Scan.Unread", "%lu folders could not be read and are not counted", {unread}));
}

}  // namespace orv::cli

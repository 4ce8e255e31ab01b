#include <algorithm>
#include <atomic>
#include <chrono>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include "accounts/filters/FilterSettings.h"
#include "backup/scanner/FolderReader.h"
#include "backup/tree/MountPoints.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/PathArgument.h"
#include "cli/ReadableFile.h"
#include "cli/StoredSelection.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/files/Existence.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/texts/VisibleText.h"
#include "platform/Services.h"
#include "widgets/SizeText.h"

namespace orv::cli {

namespace {

using nlohmann::json;
using quelm::FormatLocalizedString;

std::string sizeText(std::uint64_t bytes) {
    return FileSizeString(static_cast<std::int64_t>(bytes));
}

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
        fmt::print(
            console_.err, "{}{}", clearLine,
            FormatLocalizedString("Scan.Progress", "%lu folders, %@", {folders, sizeText(bytes)}));
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
            fmt::print(console_.out, "{:>10} {:>8} {}\n", sizeText(totals.size), totals.files,
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
                                         {sizeText(bytes_), files_, folders_}));
    }

 private:
    Console& console_;
    ScanProgress progress_;
    std::uint64_t folders_ = 0;
    std::uint64_t bytes_ = 0;
    std::uint64_t files_ = 0;
};

/// A folder that is to be scanned. What the tree does not know of is as the folder that it is in.
struct ScanStep {
    FolderPlace place;
    /// Null for none.
    orv_FileSystemItem* item = nullptr;
    bool isSelected = true;
};

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

/// Depth first, the folders in a folder as the disk lists them. How many could not be read.
std::uint64_t scan(std::vector<ScanStep> steps, const ScannerFilters& filters,
                   ScanPrinter& printer) {
    const std::atomic<bool> isStopped = false;
    const auto reader = MakeFolderReader();
    std::uint64_t unread = 0;
    std::ranges::reverse(steps);
    while (!steps.empty()) {
        const ScanStep step = std::move(steps.back());
        steps.pop_back();
        auto reading = reader->read(step.place, filters, isStopped);
        if (!reading) {
            ++unread;
            continue;
        }
        if (step.isSelected) printer.add(step.place.path, reading->totals);
        std::ranges::reverse(reading->subfolders);
        for (FolderPlace& place : reading->subfolders) {
            auto* const item = loadedChild(step.item, quelm::GetLastPathComponent(place.path));
            const bool isSelected = item ? item->checkFlag() : step.isSelected;
            if (isSelected || holdsSelected(item))
                steps.push_back({std::move(place), item, isSelected});
        }
    }
    return unread;
}

/// None, after a message, when there are filters that cannot be read.
std::optional<ScannerFilters> loadFilters(const TreeRules& rules, Console& console) {
    if (!IsAbsentOrReadable(GetConfigurationPath(files::filterInfo), quelm::Value::Type::Dictionary,
                            console)) {
        return std::nullopt;
    }
    orv_FilterSettings settings(GetConfigurationPath());
    settings.load();
    ScannerFilters filters = ScannerFilters::of(settings);
    filters.unscannedFolders.insert(rules.excludedVolumes.begin(), rules.excludedVolumes.end());
    for (const auto& volume : VolumesInSight(*platform::ProcessServices().volumes)) {
        if (volume.pseudo) filters.unscannedFolders.insert(volume.mountPoint);
    }
    return filters;
}

/// None, after a message, when one is no folder.
std::optional<std::vector<ScanStep>> stepsOfPaths(const std::vector<std::string>& words,
                                                  Console& console) {
    std::vector<ScanStep> steps;
    for (const std::string& word : words) {
        const std::string path = PathOfFolder(word);
        if (!quelm::IsFolder(path)) {
            Say(console, FormatLocalizedString("Folders.NoFolder",
                                               "%@ is no folder. Name a folder that is there.",
                                               {quelm::VisibleText(path)}));
            return std::nullopt;
        }
        steps.push_back({placeOf(path), nullptr, true});
    }
    return steps;
}

std::vector<ScanStep> stepsOfSelection(FileSystemTree& tree) {
    std::vector<ScanStep> steps;
    for (orv_FileSystemItem* const item : tree.findTopLevelItems())
        steps.push_back({placeOf(item->fullPath()), item, true});
    return steps;
}

}  // namespace

ExitCode ScanFolders(const Arguments& arguments, Console& console) {
    const auto stored = LoadSelection(console);
    if (!stored) return ExitCode::Failed;
    SelectionTree selection(*stored);
    const auto filters = loadFilters(selection.tree().rules(), console);
    if (!filters) return ExitCode::Failed;
    auto steps = arguments.empty() ? std::optional(stepsOfSelection(selection.tree()))
                                   : stepsOfPaths(arguments.words(), console);
    if (!steps) return ExitCode::Failed;
    std::uint64_t unread = 0;
    {
        ScanPrinter printer(console);
        unread = scan(std::move(*steps), *filters, printer);
        printer.finish();
    }
    if (unread == 0) return ExitCode::Done;
    return Fail(console, ExitCode::Done,
                FormatLocalizedString(
                    "Scan.Unread", "%lu folders could not be read and are not counted", {unread}));
}

}  // namespace orv::cli

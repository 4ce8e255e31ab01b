#include <algorithm>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>
#include <ostream>

#include "accounts/filters/FilterCategories.h"
#include "accounts/filters/FilterSettings.h"
#include "agentlink/AgentVocabulary.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/ReadableFile.h"
#include "cli/SettingsChange.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/texts/VisibleText.h"

namespace orv::cli {

namespace {

using nlohmann::json;
using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

/// The word for all files, beside the categories.
constexpr std::string_view everything = "all";

/// None, after a message, when there is a file that cannot be read.
std::optional<orv_FilterSettings> loadSettings(Console& console) {
    if (!IsAbsentOrReadable(GetConfigurationPath(files::filterInfo), quelm::Value::Type::Dictionary,
                            console)) {
        return std::nullopt;
    }
    std::optional<orv_FilterSettings> settings(GetConfigurationPath());
    settings->load();
    return settings;
}

/// File names and patterns may hold bytes that are not UTF-8, which JSON cannot.
void printJson(Console& console, const json& value) {
    fmt::print(console.out, "{}\n", value.dump(-1, ' ', false, json::error_handler_t::replace));
}

json asJson(const orv_FilterSettings& settings) {
    json object = {{"all", settings.includeAllFiles()},
                   {"include", settings.includeFilters()},
                   {"exclude", settings.excludeFilters()},
                   {"excludedByServer", orv_FilterSettings::excludeFileTypes()},
                   {"max_file_size", settings.maxFileSize()},
                   {"min_file_size", settings.minFileSize()},
                   {"file_size_filtering", settings.fileSizeFiltering()}};
    for (const FilterCategory& category : FilterCategories()) {
        const std::string name(category.name);
        object[name] = settings.predefIncludeFilterValue(name);
    }
    return object;
}

std::string onOrOff(bool on) {
    return on ? GetLocalizedString("Filters.On", "on") : GetLocalizedString("Filters.Off", "off");
}

void printSettings(std::ostream& out, const orv_FilterSettings& settings) {
    fmt::print(out, "{}: {}\n", everything, onOrOff(settings.includeAllFiles()));
    for (const FilterCategory& category : FilterCategories()) {
        const bool on = settings.predefIncludeFilterValue(std::string(category.name));
        fmt::print(out, "{}: {}\n", category.name, onOrOff(on));
    }
    const auto printList = [&out](const std::string& label, const std::vector<std::string>& list) {
        const std::string none = GetLocalizedString("Filters.None", "none");
        fmt::print(
            out, "{}: {}\n", label,
            list.empty() ? none : quelm::VisibleText(fmt::format("{}", fmt::join(list, ", "))));
    };
    printList(GetLocalizedString("Filters.Include", "also included"), settings.includeFilters());
    printList(GetLocalizedString("Filters.Exclude", "excluded"), settings.excludeFilters());
    printList(GetLocalizedString("Filters.ExcludedByServer", "excluded by the server"),
              orv_FilterSettings::excludeFileTypes());
    const auto largest = settings.maxFileSize();
    fmt::print(out, "{}: {}\n", GetLocalizedString("Filters.LargestFile", "largest file"),
               largest != 0 ? FormatLocalizedString("Filters.Megabytes", "%ld MB", {largest})
                            : GetLocalizedString("Filters.NoLimit", "no limit"));
}

/// What the lists decide about one name, and by which filter.
struct Verdict {
    std::string name;
    bool included = false;
    std::uint32_t type = FILTER_ALL_FILES;
    const orv_FilenameFilter* by = nullptr;
    const orv_FilenameFilter* excludedBy = nullptr;
};

struct Lists {
    orv_FilterList include;
    orv_FilterList exclude;

    [[nodiscard]] Verdict judge(const std::string& name) const {
        Verdict verdict{.name = name};
        verdict.included = include.isIncluded(name, verdict.type);
        verdict.by = include.decidingFilter(name);
        verdict.excludedBy = exclude.decidingFilter(name);
        return verdict;
    }
};

json patternAsJson(const orv_FilenameFilter* filter) {
    return filter ? json(filter->givenPattern()) : json();
}

json asJson(const Verdict& verdict) {
    return {{"name", verdict.name},
            {"included", verdict.included},
            {"type", verdict.type},
            {"pattern", patternAsJson(verdict.by)},
            {"excluded", verdict.excludedBy != nullptr},
            {"excludePattern", patternAsJson(verdict.excludedBy)}};
}

std::string describe(const Verdict& verdict) {
    if (verdict.excludedBy) {
        return FormatLocalizedString("Filters.ExcludedBy", "%@: excluded by %@, type %lu",
                                     {verdict.name, verdict.excludedBy->givenPattern(),
                                      verdict.excludedBy->getFilterType()});
    }
    if (!verdict.included) {
        return FormatLocalizedString("Filters.NotIncluded", "%@: not included, no pattern matches",
                                     {verdict.name});
    }
    if (!verdict.by) {
        return FormatLocalizedString("Filters.AllIncluded", "%@: included, as all files, type %lu",
                                     {verdict.name, verdict.type});
    }
    return FormatLocalizedString("Filters.IncludedBy", "%@: included by %@, type %lu",
                                 {verdict.name, verdict.by->givenPattern(), verdict.type});
}

/// Whether the file now says the same; storing itself tells a failure only in the log.
bool storeAndCheck(const orv_FilterSettings& settings) {
    MakeConfigurationFolder();
    orv_FilterSettings stored(GetConfigurationPath());
    return settings.store() && stored.load() && stored.isEqualToAgentSettings(settings);
}

/// Stores the changed settings, shows them with --json, and tells the agent.
ExitCode finishChange(const orv_FilterSettings& settings, Console& console) {
    if (!storeAndCheck(settings)) {
        return Fail(console, ExitCode::Failed,
                    FormatLocalizedString("Filters.NotStored",
                                          "The filters could not be stored in %@. See whether the "
                                          "folder is there and can be written, and the disk is "
                                          "not full.",
                                          {GetConfigurationPath()}));
    }
    if (console.json) printJson(console, asJson(settings));
    AnnounceSettingsChange(HintBackupSelection, console);
    return ExitCode::Done;
}

/// For a change that was one already: nothing is stored or announced.
ExitCode nothingToDo(const orv_FilterSettings& settings, Console& console,
                     const std::string& message) {
    if (console.json) printJson(console, asJson(settings));
    return Fail(console, ExitCode::Done, message);
}

bool contains(const std::vector<std::string>& list, const std::string& text) {
    return std::ranges::find(list, text) != list.end();
}

std::string namesOfCategories() {
    std::string names(everything);
    for (const FilterCategory& category : FilterCategories())
        names += " " + std::string(category.name);
    return names;
}

}  // namespace

ExitCode ShowFilters(const Arguments&, Console& console) {
    const auto settings = loadSettings(console);
    if (!settings) return ExitCode::Failed;
    if (console.json) {
        printJson(console, asJson(*settings));
    } else {
        printSettings(console.out, *settings);
    }
    return ExitCode::Done;
}

ExitCode MatchFilters(const Arguments& arguments, Console& console) {
    const auto settings = loadSettings(console);
    if (!settings) return ExitCode::Failed;
    const Lists lists{settings->includeFilterList(), settings->excludeFilterList()};
    json all = json::array();
    for (const std::string& name : arguments.words()) {
        const Verdict verdict = lists.judge(name);
        if (console.json) {
            all.push_back(asJson(verdict));
        } else {
            fmt::print(console.out, "{}\n", quelm::VisibleText(describe(verdict)));
        }
    }
    if (console.json) printJson(console, all);
    return ExitCode::Done;
}

ExitCode AddExcludeFilter(const Arguments& arguments, Console& console) {
    const std::string& pattern = arguments[0];
    if (pattern.empty()) {
        return Fail(console, ExitCode::Usage,
                    GetLocalizedString("Filters.EmptyPattern",
                                       "An empty pattern would exclude every file. Say \"*\" if "
                                       "that is meant."));
    }
    auto settings = loadSettings(console);
    if (!settings) return ExitCode::Failed;
    if (contains(settings->excludeFilters(), pattern)) {
        return nothingToDo(
            *settings, console,
            FormatLocalizedString("Filters.AlreadyExcluded", "%@ is excluded already", {pattern}));
    }
    if (!settings->addExcludeFilter(pattern)) {
        return Fail(console, ExitCode::Failed,
                    FormatLocalizedString("Filters.BadPattern",
                                          "The pattern cannot be stored: it is longer than %lu "
                                          "bytes, is not UTF-8 or holds control characters. "
                                          "Shorten it, and say \"?\" for each such byte.",
                                          {orv_FilterSettings::longestPattern}));
    }
    return finishChange(*settings, console);
}

ExitCode RemoveExcludeFilter(const Arguments& arguments, Console& console) {
    const std::string& pattern = arguments[0];
    auto settings = loadSettings(console);
    if (!settings) return ExitCode::Failed;
    if (!contains(settings->excludeFilters(), pattern)) {
        return Fail(console, ExitCode::Failed,
                    FormatLocalizedString("Filters.NotExcluded",
                                          "%@ is not among the excluded patterns. See orvctl "
                                          "filters show.",
                                          {pattern}));
    }
    settings->removeExcludeFilter(pattern);
    return finishChange(*settings, console);
}

ExitCode SwitchFilterCategory(const Arguments& arguments, Console& console) {
    const std::string& name = arguments[0];
    const bool on = arguments[1] == "on";
    if (!on && arguments[1] != "off") {
        return Fail(
            console, ExitCode::Usage,
            FormatLocalizedString("Filters.BadSwitch", "%@ is neither on nor off", {arguments[1]}));
    }
    auto settings = loadSettings(console);
    if (!settings) return ExitCode::Failed;
    if (name == everything) {
        settings->setIncludeAllFiles(on);
    } else if (IsFilterCategory(name)) {
        settings->setPredefIncludeFilter(name, on);
        if (on && settings->includeAllFiles()) {
            Say(console, GetLocalizedString("Filters.AllStillOn",
                                            "All files are backed up until orvctl filters category "
                                            "all off."));
        }
    } else {
        return Fail(console, ExitCode::Usage,
                    FormatLocalizedString("Filters.BadCategory", "%@ is no category. There are: %@",
                                          {name, namesOfCategories()}));
    }
    return finishChange(*settings, console);
}

}  // namespace orv::cli

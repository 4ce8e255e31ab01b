#include "accounts/filters/FilterSettings.h"

#include <fmt/format.h>

#include "accounts/filters/FilterCategories.h"
#include "accounts/filters/StorageExceptions.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "config/PropertyAccess.h"
#include "config/PropertyFiles.h"
#include "foundation/system/Log.h"
#include "foundation/texts/Utf8.h"

namespace orv {

namespace {

template <class T>
struct Setting {
    const char* key;
    T fallback;
};

// every key of the file beside those of the categories, which are off by default
constexpr Setting<bool> allFiles{"all", true};
constexpr const char* includePatterns = "include";
constexpr const char* excludePatterns = "exclude";
constexpr Setting<std::int64_t> largestFile{"max_file_size", 0};
constexpr Setting<std::int64_t> smallestFile{"min_file_size", 50};
constexpr Setting<bool> sizeFiltering{"file_size_filtering", true};

bool valueOf(const quelm::Dictionary& settings, const Setting<bool>& setting) {
    return GetBoolPropertyWithDefault(settings, setting.key, setting.fallback);
}

std::int64_t valueOf(const quelm::Dictionary& settings, const Setting<std::int64_t>& setting) {
    return GetLongPropertyWithDefault(settings, setting.key, setting.fallback);
}

std::vector<std::string> stringsOf(const quelm::Dictionary& settings, const char* key) {
    std::vector<std::string> strings;
    const quelm::Value* const value = GetArrayProperty(settings, key);
    const quelm::Array* const array = value ? value->asArray() : nullptr;
    if (!array) return strings;
    for (const quelm::Value& item : *array) {
        if (const auto* text = item.asString()) strings.push_back(*text);
    }
    return strings;
}

bool isUsable(const std::string& pattern) {
    return pattern.size() <= orv_FilterSettings::longestPattern &&
           pattern.find('\0') == pattern.npos;
}

/// What is not usable is left out, with one line for all of it; `file` is where they come from.
void addAll(orv_FilterList& list, const std::vector<std::string>& patterns, EFilterType type,
            const char* file) {
    std::vector<std::string_view> leftOut;
    for (const std::string& pattern : patterns) {
        if (isUsable(pattern)) {
            list.addFilter(pattern.c_str(), type);
        } else {
            leftOut.push_back(pattern);
        }
    }
    if (leftOut.empty()) return;
    constexpr std::size_t shown = 60;
    quelm::LogError(fmt::format(
        "{}: patterns that are longer than {} bytes or hold a NUL are not used: {}, the first of "
        "which begins with \"{}\". Take them out.",
        file, orv_FilterSettings::longestPattern, leftOut.size(), leftOut[0].substr(0, shown)));
}

}  // namespace

orv_FilterSettings::orv_FilterSettings(const std::string& folder)
    : path(folder.empty() ? "" : folder + "/" + files::filterInfo),
      settings(CreateEmptyProperties()) {}

bool orv_FilterSettings::load() {
    return loadFromSpecificPath(path);
}

bool orv_FilterSettings::loadFromSpecificPath(const std::string& file) {
    auto loaded = file.empty() ? std::nullopt : LoadPropertiesFromFile(file);
    quelm::Dictionary* const dictionary = loaded ? loaded->asDictionary() : nullptr;
    if (dictionary) settings = std::move(*dictionary);
    if (loaded && !dictionary) {
        quelm::LogError(file + " holds no filter settings and is not used. Remove it.");
    }
    return true;
}

bool orv_FilterSettings::store() const {
    return storeToSpecificPath(path);
}

bool orv_FilterSettings::storeToSpecificPath(const std::string& file) const {
    if (file.empty()) return false;
    if (!StorePropertiesToFile(file, settings)) {
        quelm::LogError(fmt::format("{}: cannot be opened, so the filters were not stored", file));
    }
    return true;
}

bool orv_FilterSettings::isEqualToAgentSettings(const orv_FilterSettings& other) const {
    return settings == other.settings;
}

bool orv_FilterSettings::includeAllFiles() const {
    return valueOf(settings, allFiles);
}

void orv_FilterSettings::setIncludeAllFiles(bool value) {
    SetBoolProperty(settings, allFiles.key, value);
}

bool orv_FilterSettings::predefIncludeFilterValue(const std::string& category) const {
    return IsFilterCategory(category) && GetBoolProperty(settings, category.c_str());
}

void orv_FilterSettings::setPredefIncludeFilter(const std::string& category, bool value) {
    if (quelm::IsXmlText(category)) SetBoolProperty(settings, category.c_str(), value);
}

std::vector<std::string> orv_FilterSettings::includeFilters() const {
    return stringsOf(settings, includePatterns);
}

std::vector<std::string> orv_FilterSettings::excludeFilters() const {
    return stringsOf(settings, excludePatterns);
}

bool orv_FilterSettings::addExcludeFilter(const std::string& pattern) {
    if (!isUsable(pattern) || !quelm::IsXmlText(pattern)) return false;
    quelm::Value* value = settings.find(excludePatterns);
    if (!value || !value->asArray()) {
        settings.set(excludePatterns, quelm::Array{});
        value = settings.find(excludePatterns);
    }
    value->asArray()->emplace_back(pattern);
    return true;
}

void orv_FilterSettings::removeExcludeFilter(const std::string& pattern) {
    quelm::Value* const value = settings.find(excludePatterns);
    quelm::Array* const array = value ? value->asArray() : nullptr;
    if (array) std::erase(*array, quelm::Value(pattern));
}

std::int64_t orv_FilterSettings::maxFileSize() const {
    return valueOf(settings, largestFile);
}

void orv_FilterSettings::setMaxFileSize(std::int64_t megabytes) {
    SetLongProperty(settings, largestFile.key, megabytes);
}

std::int64_t orv_FilterSettings::minFileSize() const {
    return valueOf(settings, smallestFile);
}

void orv_FilterSettings::setMinFileSize(std::int64_t megabytes) {
    SetLongProperty(settings, smallestFile.key, megabytes);
}

bool orv_FilterSettings::fileSizeFiltering() const {
    return valueOf(settings, sizeFiltering);
}

void orv_FilterSettings::setFileSizeFiltering(bool value) {
    SetBoolProperty(settings, sizeFiltering.key, value);
}

orv_FilterList orv_FilterSettings::includeFilterList() const {
    orv_FilterList list(true);
    if (includeAllFiles()) return list;
    for (const FilterCategory& category : FilterCategories()) {
        if (predefIncludeFilterValue(std::string(category.name))) {
            list.addFilters(category.type, category.patterns);
        }
    }
    addAll(list, includeFilters(), FILTER_INCLUDED, files::filterInfo);
    return list;
}

orv_FilterList orv_FilterSettings::excludeFilterList() const {
    orv_FilterList list(false);
    addAll(list, excludeFilters(), FILTER_EXCLUDED, files::filterInfo);
    addAll(list, excludeFileTypes(), FILTER_EXCLUDED, files::storageExceptions);
    return list;
}

FolderPatterns orv_FilterSettings::excludedFolderPatterns() {
    return FolderPatterns(ReadExcludedFolders(GetConfigurationPath(files::storageExceptions)));
}

std::vector<std::string> orv_FilterSettings::excludeFileTypes() {
    return ReadExcludedFileTypes(GetConfigurationPath(files::storageExceptions));
}

}  // namespace orv

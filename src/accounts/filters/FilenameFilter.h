#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orv {

/// Where a filter comes from; also the index of the scanner's byte counters.
enum EFilterType : std::uint32_t {
    /// No filter: every file counts.
    FILTER_ALL_FILES = 0,
    FILTER_DOCUMENTS = 1,
    FILTER_FINANCIAL = 2,
    FILTER_IMAGES = 3,
    FILTER_ARCHIVES = 4,
    FILTER_DATABASES = 5,
    FILTER_MUSIC = 6,
    FILTER_VIDEO = 7,
    /// The user's own include patterns.
    FILTER_INCLUDED = 8,
    /// Every exclude pattern.
    FILTER_EXCLUDED = 9,
    FILTER_TYPE_COUNT = 10,
};

/// How a filter compares; all without regard to the case of ASCII letters.
using FilterFunction = bool (*)(const char* pattern, std::uint32_t patternLength, const char* name,
                                std::uint32_t nameLength);
bool FilterFunctionAll(const char* pattern, std::uint32_t patternLength, const char* name,
                       std::uint32_t nameLength);
bool FilterFunctionSuffix(const char* pattern, std::uint32_t patternLength, const char* name,
                          std::uint32_t nameLength);
bool FilterFunctionPrefix(const char* pattern, std::uint32_t patternLength, const char* name,
                          std::uint32_t nameLength);
bool FilterFunctionFnmatch(const char* pattern, std::uint32_t patternLength, const char* name,
                           std::uint32_t nameLength);

/// One pattern for file names, classified once so that most need no shell matcher.
class orv_FilenameFilter {
 public:
    orv_FilenameFilter(const char* pattern, std::uint32_t type);

    [[nodiscard]] bool isIncluded(const char* name, std::uint32_t length) const {
        return filterFunction(pattern.data(), static_cast<std::uint32_t>(pattern.size()), name,
                              length);
    }
    [[nodiscard]] std::uint32_t getFilterType() const { return filterType; }

    [[nodiscard]] FilterFunction function() const { return filterFunction; }
    /// What the function compares with: without the star of a suffix or a prefix.
    [[nodiscard]] const std::string& comparedPattern() const { return pattern; }
    /// The pattern as it was given, but "*" for an empty one.
    [[nodiscard]] std::string givenPattern() const;

 private:
    std::string pattern;
    FilterFunction filterFunction;
    std::uint32_t filterType;
};

}  // namespace orv

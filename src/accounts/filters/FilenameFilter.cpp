#include "accounts/filters/FilenameFilter.h"

#include "accounts/filters/ShellPattern.h"
#include "foundation/texts/CaseFolding.h"

namespace orv {

namespace {

FilterFunction classify(std::string_view pattern) {
    // brackets are not among them: "*[a]" is a suffix, and means that text
    constexpr std::string_view special = "*\\?";
    if (pattern.empty() || pattern == "*") return FilterFunctionAll;
    if (pattern.starts_with('*') && pattern.find_first_of(special, 1) == pattern.npos) {
        return FilterFunctionSuffix;
    }
    if (pattern.ends_with('*') && pattern.find_first_of(special) == pattern.size() - 1) {
        return FilterFunctionPrefix;
    }
    return FilterFunctionFnmatch;
}

}  // namespace

bool FilterFunctionAll(const char*, std::uint32_t, const char*, std::uint32_t) {
    return true;
}

bool FilterFunctionSuffix(const char* pattern, std::uint32_t patternLength, const char* name,
                          std::uint32_t nameLength) {
    return nameLength >= patternLength &&
           quelm::EqualsWithoutCase({pattern, patternLength},
                                    {name + (nameLength - patternLength), patternLength});
}

bool FilterFunctionPrefix(const char* pattern, std::uint32_t patternLength, const char* name,
                          std::uint32_t nameLength) {
    return nameLength >= patternLength &&
           quelm::EqualsWithoutCase({pattern, patternLength}, {name, patternLength});
}

bool FilterFunctionFnmatch(const char* pattern, std::uint32_t patternLength, const char* name,
                           std::uint32_t nameLength) {
    return MatchesShellPattern({pattern, patternLength}, {name, nameLength});
}

orv_FilenameFilter::orv_FilenameFilter(const char* text, std::uint32_t type)
    : pattern(text), filterFunction(classify(pattern)), filterType(type) {
    if (filterFunction == FilterFunctionSuffix) pattern.erase(0, 1);
    if (filterFunction == FilterFunctionPrefix) pattern.pop_back();
}

std::string orv_FilenameFilter::givenPattern() const {
    if (filterFunction == FilterFunctionAll) return "*";
    if (filterFunction == FilterFunctionSuffix) return "*" + pattern;
    if (filterFunction == FilterFunctionPrefix) return pattern + "*";
    return pattern;
}

}  // namespace orv

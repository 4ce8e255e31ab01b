#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "accounts/filters/FilenameFilter.h"
#include "accounts/filters/FilterIndex.h"

namespace orv {

/// File-name filters in order, of which the first that matches counts. Copies are independent; any
/// number of threads may ask one list while none adds to it.
class orv_FilterList {
 public:
    /// `answerWhenEmpty` is what a list without filters says of every name.
    explicit orv_FilterList(bool answerWhenEmpty) : matchEmpty(answerWhenEmpty) {}

    void addFilter(const char* pattern, std::uint32_t filterType);
    /// Patterns up to a null entry.
    void addFilters(std::uint32_t filterType, const char* const* patterns);

    /// Whether a filter matches the name, which holds no NUL, and through `filterType` its type: 0
    /// for an empty list, as it was when none matches.
    [[nodiscard]] bool isIncluded(std::string_view name, std::uint32_t& filterType) const;
    /// The filter that decides; null when none matches.
    [[nodiscard]] const orv_FilenameFilter* decidingFilter(std::string_view name) const;

    [[nodiscard]] const std::vector<orv_FilenameFilter>& all() const { return filters; }

 private:
    std::vector<orv_FilenameFilter> filters;
    bool matchEmpty;
    FilterIndex index_;
};

}  // namespace orv

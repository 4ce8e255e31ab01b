#include "accounts/filters/FilterList.h"

namespace orv {

void orv_FilterList::addFilter(const char* pattern, std::uint32_t filterType) {
    const auto& filter = filters.emplace_back(pattern, filterType);
    index_.add(filter, static_cast<std::uint32_t>(filters.size() - 1));
}

void orv_FilterList::addFilters(std::uint32_t filterType, const char* const* patterns) {
    for (; *patterns != nullptr; ++patterns)
        addFilter(*patterns, filterType);
}

const orv_FilenameFilter* orv_FilterList::decidingFilter(std::string_view name) const {
    const std::uint32_t number = index_.firstMatch(filters, name);
    return number != FilterIndex::none ? &filters[number] : nullptr;
}

bool orv_FilterList::isIncluded(std::string_view name, std::uint32_t& filterType) const {
    if (filters.empty()) {
        filterType = FILTER_ALL_FILES;
        return matchEmpty;
    }
    const orv_FilenameFilter* const filter = decidingFilter(name);
    if (filter == nullptr) return false;
    filterType = filter->getFilterType();
    return true;
}

}  // namespace orv

#include "backup/scanner/ScannerFilters.h"

#include "accounts/filters/FilterSettings.h"

namespace orv {

namespace {

std::uint64_t bytesOf(std::int64_t megabytes) {
    constexpr std::uint64_t megabyte = 1'048'576;
    const auto number = static_cast<std::uint64_t>(megabytes);
    const bool isLimit = megabytes > 0 && number <= ScannerFilters::unlimited / megabyte;
    return isLimit ? number * megabyte : ScannerFilters::unlimited;
}

}  // namespace

ScannerFilters ScannerFilters::of(const orv_FilterSettings& settings) {
    return {settings.includeFilterList(),
            settings.excludeFilterList(),
            orv_FilterSettings::excludedFolderPatterns(),
            bytesOf(settings.maxFileSize()),
            {}};
}

}  // namespace orv

#include <gtest/gtest.h>
#include <limits>
#include <utility>

#include "accounts/filters/FilterSettings.h"
#include "backup/scanner/ScannerFilters.h"

namespace {

TEST(ScannerFilters, TakeTheLargestFileInMegabytesAndNoneAsNoLimit) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    constexpr auto unlimited = orv::ScannerFilters::unlimited;
    const std::pair<std::int64_t, std::uint64_t> cases[] = {
        {0, unlimited},  {1, 1'048'576},    {5'000, 5'242'880'000},
        {-3, unlimited}, {most, unlimited}, {most / 1'048'576, 9'223'372'036'853'727'232U}};
    for (const auto& [megabytes, bytes] : cases) {
        orv::orv_FilterSettings settings("");
        settings.setMaxFileSize(megabytes);
        EXPECT_EQ(orv::ScannerFilters::of(settings).maxFileSize, bytes) << megabytes;
    }
}

TEST(ScannerFilters, TakeThePatternsOfTheSettings) {
    orv::orv_FilterSettings settings("");
    settings.setIncludeAllFiles(false);
    settings.setPredefIncludeFilter("images", true);
    settings.addExcludeFilter("draft*");
    const auto filters = orv::ScannerFilters::of(settings);
    std::uint32_t type = 0;
    EXPECT_TRUE(filters.include.isIncluded("a.jpg", type));
    EXPECT_EQ(type, orv::FILTER_IMAGES);
    EXPECT_FALSE(filters.include.isIncluded("a.pdf", type));
    EXPECT_TRUE(filters.exclude.isIncluded("draft.jpg", type));
}

}  // namespace

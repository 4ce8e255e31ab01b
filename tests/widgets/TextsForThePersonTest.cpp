#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/ApplicationBundle.h"
#include "support/TemporaryFolder.h"
#include "widgets/DurationText.h"
#include "widgets/HexColor.h"
#include "widgets/SizeText.h"
#include "widgets/TimeText.h"

namespace {

TEST(TextsForThePerson, SizesHaveBinaryMultiplesAndOneDecimal) {
    const std::vector<std::pair<std::int64_t, std::string>> cases = {
        {std::numeric_limits<std::int64_t>::min(), "---"},
        {-1, "---"},
        {0, "0 B"},
        {1023, "1023 B"},
        {1024, "1.0 KB"},
        {1536, "1.5 KB"},
        {1'048'575, "1024.0 KB"},
        {1'048'576, "1.0 MB"},
        {1'073'741'823, "1024.0 MB"},
        {1'073'741'824, "1.0 GB"},
        {std::int64_t{5} << 40U, "5120.0 GB"},
        {std::numeric_limits<std::int64_t>::max(), "8589934592.0 GB"},
    };
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(orv::FileSizeString(bytes), text);
}

TEST(TextsForThePerson, IntervalsLeaveOutWhatIsZeroAndSecondsBesideHours) {
    const std::vector<std::pair<std::int64_t, std::string>> cases = {
        {std::numeric_limits<std::int64_t>::min(), ""},
        {-3725, ""},
        {0, ""},
        {1, "1 second"},
        {59, "59 seconds"},
        {60, "1 minute"},
        {121, "2 minutes 1 second"},
        {3600, "1 hour"},
        {3601, "1 hour"},
        {3725, "1 hour 2 minutes"},
        {7260, "2 hours 1 minute"},
        {std::numeric_limits<std::int64_t>::max(), "2562047788015215 hours 30 minutes"},
    };
    for (const auto& [seconds, text] : cases)
        EXPECT_EQ(orv::TimeIntervalToString(seconds), text) << seconds;
}

TEST(TextsForThePerson, EstimatesHaveDecimalMultiples) {
    const std::string none = "--- (0 KB per second)";
    const std::vector<std::tuple<std::int64_t, double, std::string>> cases = {
        {60, 0.99, none},
        {60, -5, none},
        {60, std::nan(""), none},
        {60, 1, "1 minute (0.0 KB per second)"},
        {0, 1024, " (1.0 KB per second)"},
        {61, 999'949, "1 minute 1 second (999.9 KB per second)"},
        {60, 1'000'000, "1 minute (1.0 MB per second)"},
        {60, 12'345'678, "1 minute (12.3 MB per second)"},
    };
    for (const auto& [seconds, speed, text] : cases)
        EXPECT_EQ(orv::TimeEstimationToString(seconds, speed), text) << speed;
}

TEST(TextsForThePerson, DurationsShowTheCoarsestUnitsThatAreNotZero) {
    const std::vector<std::pair<orv::DateComponents, std::string>> cases = {
        {{}, ""},
        {{.years = 1, .months = 2, .days = 1, .hours = 5}, "1 year 2 months 1 day"},
        {{.years = 2, .days = 3}, "2 years 3 days"},
        {{.months = 1, .minutes = 7, .seconds = 3}, "1 month"},
        {{.hours = 1, .minutes = 30, .seconds = 9}, "1 hour 30 minutes"},
        {{.minutes = 45}, "45 minutes"},
        {{.seconds = 1}, "1 second"},
        {{.hours = -3}, "-3 hour"},
    };
    for (const auto& [components, text] : cases)
        EXPECT_EQ(orv::durationString(components), text);
}

TEST(TextsForThePerson, AreTranslated) {
    const test_support::TemporaryFolder folder;
    folder.makeFile("de.lproj/Localizable.strings", *quelm::WritePropertyList(quelm::Dictionary{
                                                        {"FileSize.Kbytes", "%.1f Kilobyte"},
                                                        // a no-break space of two bytes at the end
                                                        {"Time.XMinutes", "%d Minuten\u00a0"},
                                                        {"DateComponents.days", "Tage"}}));
    const quelm::Bundle bundle(folder.path(), {"de"});
    quelm::SetApplicationBundle(&bundle);
    EXPECT_EQ(orv::FileSizeString(2048), "2.0 Kilobyte");
    EXPECT_EQ(orv::TimeIntervalToString(120), "2 Minuten");
    EXPECT_EQ(orv::durationString({.days = 2}), "2 Tage");
    quelm::SetApplicationBundle(nullptr);
}

TEST(HexColor, NeedsAllThreeComponents) {
    const std::vector<std::pair<std::string, std::optional<orv::HexColor>>> cases = {
        {"#e51937", orv::HexColor{0xE5, 0x19, 0x37}},
        {"#FFFFFF", orv::HexColor{255, 255, 255}},
        {"#000000 and more", orv::HexColor{0, 0, 0}},
        {"#FFF", std::nullopt},
        {"#FFFF", std::nullopt},
        {"e51937", std::nullopt},
        {"#gg0000", std::nullopt},
        {"#-1-1-1", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [text, color] : cases)
        EXPECT_EQ(orv::ParseHexColor(text), color) << text;
    EXPECT_EQ(orv::HexColorText({0xE5, 0x19, 0x07}), "#e51907");
}

}  // namespace

#include <algorithm>
#include <gmock/gmock.h>
#include <limits>

#include "widgets/PieChart.h"
#include "widgets/SummaryPanel.h"

namespace {

using orv::PieSlice;
using orv::StorageFigures;
using orv::StorageRole;
using testing::ElementsAre;
using testing::FieldsAre;

constexpr std::int64_t gigabyte = std::int64_t{1} << 30U;
constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

auto slice(const std::string& label, std::int64_t bytes, double fraction, StorageRole role) {
    return FieldsAre(label, bytes, testing::DoubleEq(fraction), role);
}

TEST(PieChart, ShowsWhoTakesUpWhatOfTheQuota) {
    EXPECT_THAT(orv::PieSlices({.quota = 20, .thisComputer = 12, .otherComputers = 3}),
                ElementsAre(slice("This computer", 12, 0.6, StorageRole::ThisComputer),
                            slice("Other computers", 3, 0.15, StorageRole::OtherComputers),
                            slice("Projects", 0, 0, StorageRole::Projects),
                            slice("Free", 5, 0.25, StorageRole::Free)));
}

TEST(PieChart, IsWhatIsStoredWithoutAQuotaAndBeyondIt) {
    for (const std::int64_t quota : {-1, 0, -2, 3}) {
        EXPECT_THAT(orv::PieSlices({.quota = quota, .thisComputer = 6, .projects = 2}),
                    ElementsAre(slice("This computer", 6, 0.75, StorageRole::ThisComputer),
                                slice("Projects", 2, 0.25, StorageRole::Projects)))
            << quota;
    }
}

TEST(PieChart, HidesWhatIsOffUnlessItTakesUpStorage) {
    StorageFigures figures = {.quota = 10, .backupEnabled = false, .syncEnabled = false};
    EXPECT_THAT(orv::PieSlices(figures), ElementsAre(slice("Free", 10, 1, StorageRole::Free)));
    figures.thisComputer = 5;
    EXPECT_THAT(orv::PieSlices(figures),
                ElementsAre(slice("This computer", 5, 0.5, StorageRole::ThisComputer),
                            slice("Free", 5, 0.5, StorageRole::Free)));
    EXPECT_THAT(orv::PieSlices({}), ElementsAre());
}

void expectWholePie(const StorageFigures& figures) {
    const auto& [quota, thisComputer, otherComputers, projects, backup, sync] = figures;
    const auto slices = orv::PieSlices(figures);
    const bool isEmpty = std::max({quota, thisComputer, otherComputers, projects}) <= 0;
    EXPECT_EQ(slices.empty(), isEmpty);
    double sum = isEmpty ? 1 : 0;
    for (const PieSlice& slice : slices) {
        EXPECT_GE(slice.fraction, 0);
        EXPECT_GE(slice.bytes, 0);
        sum += slice.fraction;
    }
    EXPECT_NEAR(sum, 1, 1e-12);
}

TEST(PieChart, FractionsAddUpToOneWhateverTheFigures) {
    const std::int64_t sizes[] = {smallest, -1, 0, 1, 1000, gigabyte * 3, largest - 1, largest};
    for (const auto quota : sizes) {
        for (const auto thisComputer : sizes) {
            for (const auto otherComputers : sizes) {
                for (const auto projects : sizes)
                    expectWholePie({quota, thisComputer, otherComputers, projects});
            }
        }
    }
}

TEST(PieChart, IsSaidInWords) {
    const std::int64_t g = gigabyte;
    const std::vector<std::pair<StorageFigures, std::string>> cases = {
        {{20 * g, 12 * g, 3 * g, 0, true, false},
         "This computer 12.0 GB, other computers 3.0 GB, free 5.0 GB of 20.0 GB"},
        {{20 * g, 12 * g, 0, 3 * g, true, true},
         "This computer 12.0 GB, projects 3.0 GB, free 5.0 GB of 20.0 GB"},
        {{10 * g, 12 * g, 0, 0, true, false},
         "This computer 12.0 GB, 2.0 GB over the quota of 10.0 GB"},
        {{10 * g, 10 * g, 0, 0, true, false}, "This computer 10.0 GB, free 0 B of 10.0 GB"},
        {{g, largest, largest, 0, true, false},
         "This computer 8589934592.0 GB, other computers 8589934592.0 GB, 8589934591.0 GB over the "
         "quota of 1.0 GB"},
        {{-1, 0, 3 * g, 0, false, true}, "Other computers 3.0 GB, projects 0 B, no limit"},
        {{0, 12 * g, 0, 0, true, false}, "This computer 12.0 GB"},
        {{0, 0, 0, 0, false, true}, "Projects 0 B"},
        {{5 * g, 0, 0, 0, false, false}, "Free 5.0 GB of 5.0 GB"},
        {{-1, 0, 0, 0, false, false}, "No limit"},
        {{0, -5, 0, 0, false, false}, "It is not known what is stored"},
    };
    for (const auto& [figures, text] : cases)
        EXPECT_EQ(orv::DescriptionInWords(figures), text);
}

TEST(PieChart, KnowsWhenTheQuotaIsExceeded) {
    EXPECT_FALSE(orv::IsOverQuota({.quota = 10, .thisComputer = 10}));
    EXPECT_TRUE(orv::IsOverQuota({.quota = 10, .thisComputer = 10, .projects = 1}));
    EXPECT_TRUE(orv::IsOverQuota({.quota = 10, .thisComputer = largest, .projects = largest}));
    EXPECT_FALSE(orv::IsOverQuota({.quota = -1, .thisComputer = largest}));
    EXPECT_FALSE(orv::IsOverQuota({.quota = 0, .thisComputer = largest}));
}

TEST(SummaryPanel, ListsThePartsAndTheQuota) {
    orv::SummaryPanel panel;
    panel.setSyncEnabled(false);
    panel.setFigures({.quota = 20 * gigabyte, .thisComputer = 12 * gigabyte});
    EXPECT_THAT(panel.rows(),
                ElementsAre(FieldsAre("This computer", "12.0 GB", StorageRole::ThisComputer),
                            FieldsAre("Free", "8.0 GB", StorageRole::Free),
                            FieldsAre("Quota", "20.0 GB", StorageRole::Quota)));
    panel.setFigures({.quota = 10 * gigabyte, .thisComputer = 12 * gigabyte});
    EXPECT_THAT(panel.rows(),
                ElementsAre(FieldsAre("This computer", "12.0 GB", StorageRole::ThisComputer),
                            FieldsAre("Over the quota", "2.0 GB", StorageRole::OverQuota),
                            FieldsAre("Quota", "10.0 GB", StorageRole::Quota)));
    panel.setBackupEnabled(false);
    panel.setSyncEnabled(true);
    panel.setFigures({.quota = -1});
    EXPECT_THAT(panel.rows(), ElementsAre(FieldsAre("Projects", "0 B", StorageRole::Projects),
                                          FieldsAre("Quota", "Unlimited", StorageRole::Quota)));
    panel.setSyncEnabled(false);
    panel.setFigures({});
    EXPECT_THAT(panel.rows(), ElementsAre());
}

}  // namespace

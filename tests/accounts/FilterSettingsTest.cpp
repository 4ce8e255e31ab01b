#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "accounts/filters/FilterSettings.h"
#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "foundation/system/Log.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::orv_FilterSettings;
using quelm::Array;
using quelm::Dictionary;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FilterSettings : public testing::Test {
 protected:
    FilterSettings() {
        orv::SetConfigBasePath(folder.path());
        quelm::SetLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~FilterSettings() override {
        quelm::SetLogSink({});
        orv::ClearConfigBasePath();
    }

    void putExceptions(const std::string& types) {
        folder.makeFile("storage_exceptions.xml", "<backup-exclusions><types>" + types +
                                                      "</types><patterns/></backup-exclusions>");
    }
    /// The type that the list gives, or -1.
    static int typeOf(const orv::orv_FilterList& list, const std::string& name) {
        std::uint32_t type = 0;
        return list.isIncluded(name, type) ? static_cast<int>(type) : -1;
    }

    const test_support::TemporaryFolder folder;
    const std::string file = folder / "filter_info.plist";
    std::vector<std::string> log;
};

TEST_F(FilterSettings, HasDefaultsWithoutAFileAndForValuesOfOtherTypes) {
    orv_FilterSettings settings(folder.path());
    EXPECT_TRUE(settings.load());
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(settings.includeAllFiles());
        EXPECT_FALSE(settings.predefIncludeFilterValue("music"));
        EXPECT_FALSE(settings.predefIncludeFilterValue("all")) << "no category";
        EXPECT_THAT(settings.excludeFilters(), IsEmpty());
        EXPECT_EQ(settings.maxFileSize(), 0);
        EXPECT_EQ(settings.minFileSize(), 50);
        EXPECT_TRUE(settings.fileSizeFiltering());
        EXPECT_TRUE(settings.includeFilterList().all().empty());
        orv::StorePropertiesToFile(file, Dictionary{{"all", 0},
                                                    {"music", "yes"},
                                                    {"exclude", "*"},
                                                    {"include", 1},
                                                    {"max_file_size", true},
                                                    {"min_file_size", ""},
                                                    {"file_size_filtering", 0.0}});
        settings.load();
    }
}

TEST_F(FilterSettings, StoringKeepsWhatItDoesNotKnow) {
    orv::StorePropertiesToFile(
        file, Dictionary{{"exclude", Array{"a", 1, "b", "a"}}, {"new_in_9.0", Dictionary{}}});
    orv_FilterSettings settings(folder.path());
    settings.load();
    EXPECT_THAT(settings.excludeFilters(), ElementsAre("a", "b", "a"));
    settings.removeExcludeFilter("a");
    settings.removeExcludeFilter("absent");
    EXPECT_TRUE(settings.addExcludeFilter("c"));
    settings.setPredefIncludeFilter("odd name", true);
    settings.setIncludeAllFiles(false);
    settings.setMaxFileSize(std::int64_t{1} << 40);
    EXPECT_TRUE(settings.store());
    EXPECT_EQ(orv::LoadPropertiesFromFile(file),
              quelm::Value(Dictionary{{"all", false},
                                      {"exclude", Array{1, "b", "c"}},
                                      {"max_file_size", std::int64_t{1} << 40},
                                      {"new_in_9.0", Dictionary{}},
                                      {"odd name", true}}));

    orv_FilterSettings other("");
    EXPECT_FALSE(other.isEqualToAgentSettings(settings));
    EXPECT_TRUE(other.loadFromSpecificPath(file));
    EXPECT_TRUE(other.isEqualToAgentSettings(settings));
    other.setMinFileSize(50);
    EXPECT_FALSE(other.isEqualToAgentSettings(settings)) << "a default is not a missing key";
    EXPECT_FALSE(other.store()) << "it has no file";
    EXPECT_TRUE(other.storeToSpecificPath(folder / "copy.plist"));
}

TEST_F(FilterSettings, AFileThatCannotBeReadOrWrittenLosesNothing) {
    orv_FilterSettings settings(folder.path());
    settings.addExcludeFilter("a");
    const std::string bad[] = {"<plist><dict>", std::string("\0\1\2", 3),
                               "<plist><array/></plist>"};
    for (const std::string& content : bad) {
        folder.makeFile("filter_info.plist", content);
        log.clear();
        EXPECT_TRUE(settings.load());
        EXPECT_THAT(log, ElementsAre(HasSubstr(file))) << content;
        EXPECT_THAT(settings.excludeFilters(), ElementsAre("a"));
        EXPECT_TRUE(settings.store());
        EXPECT_EQ(orv::LoadPropertiesFromFile(file),
                  quelm::Value(Dictionary{{"exclude", Array{"a"}}}));
    }
    std::vector<std::string> copies;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        if (entry.path() != file) copies.push_back(test_support::ContentOf(entry.path()));
    }
    EXPECT_THAT(copies, testing::UnorderedElementsAreArray(bad));
    for (const std::string& text :
         {std::string("\0*", 2), std::string("\xff"), std::string("\1"), std::string(1'025, 'a')}) {
        EXPECT_FALSE(settings.addExcludeFilter(text));
        if (text.size() <= 2) settings.setPredefIncludeFilter(text, true);
    }
    EXPECT_TRUE(settings.store());
    EXPECT_EQ(orv::LoadPropertiesFromFile(file), quelm::Value(Dictionary{{"exclude", Array{"a"}}}));

    EXPECT_TRUE(settings.storeToSpecificPath(folder / "no-folder/file.plist"));
    EXPECT_THAT(log, testing::Contains(HasSubstr("no-folder/file.plist: cannot be opened")));
}

TEST_F(FilterSettings, TheIncludeListHoldsWhatIsSwitchedOnInAFixedOrder) {
    orv_FilterSettings settings(folder.path());
    orv::StorePropertiesToFile(file, Dictionary{{"include", Array{"*.mpa", "*.own"}}});
    settings.load();
    settings.setPredefIncludeFilter("video", true);
    settings.setPredefIncludeFilter("music", true);
    EXPECT_EQ(typeOf(settings.includeFilterList(), "a.own"), 0) << "all files are included";
    settings.setIncludeAllFiles(false);
    const auto list = settings.includeFilterList();
    EXPECT_EQ(typeOf(list, "a.mpa"), 6) << "in music and in video";
    EXPECT_EQ(typeOf(list, "a.avi"), 7);
    EXPECT_EQ(typeOf(list, "a.own"), 8);
    EXPECT_EQ(typeOf(list, "a.pdf"), -1);

    orv_FilterSettings nothing(folder.path());
    nothing.setIncludeAllFiles(false);
    EXPECT_EQ(typeOf(nothing.includeFilterList(), "a.pdf"), 0) << "nothing chosen is everything";
}

TEST_F(FilterSettings, TheExcludeListHoldsTheUsersPatternsAndThenTheServers) {
    orv_FilterSettings settings(folder.path());
    EXPECT_EQ(typeOf(settings.excludeFilterList(), "a"), -1);
    settings.addExcludeFilter("*.TMP");
    putExceptions("<type>*.vmdk</type><other>*.tmp</other>");
    const auto list = settings.excludeFilterList();
    EXPECT_EQ(list.all().size(), 3U);
    EXPECT_EQ(typeOf(list, "a.tmp"), 9);
    EXPECT_EQ(typeOf(list, "a.vmdk"), 9);
    EXPECT_EQ(list.decidingFilter("a.tmp")->givenPattern(), "*.TMP");
    EXPECT_EQ(typeOf(settings.includeFilterList(), "a.tmp"), 0);
    putExceptions("");
    EXPECT_EQ(settings.excludeFilterList().all().size(), 1U) << "read anew";
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(FilterSettings, PatternsThatAreTooLongAreLeftOutWithOneLineAFile) {
    const std::string longest(1'024, '?');
    orv::StorePropertiesToFile(
        file, Dictionary{{"exclude", Array{longest + "1", longest + "2", longest, "*.b"}}});
    orv_FilterSettings settings(folder.path());
    settings.load();
    putExceptions("<t>" + longest + "3</t><t>*.c</t>");
    const auto list = settings.excludeFilterList();
    EXPECT_EQ(list.all().size(), 3U);
    EXPECT_EQ(typeOf(list, "a.c"), 9);
    EXPECT_THAT(
        log, ElementsAre(HasSubstr("filter_info.plist: "), HasSubstr("storage_exceptions.xml: ")));
}

}  // namespace

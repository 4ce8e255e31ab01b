#include <gtest/gtest.h>

#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/ApplicationBundle.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/system/Log.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using quelm::Dictionary;
using quelm::FormatArgument;
using quelm::FormatLocalizedString;
using quelm::FormatText;
using quelm::GetLocalizedString;

TEST(FormatText, FillsWhatTranslatorsWrite) {
    const std::vector<FormatArgument> arguments = {"disk", -3, std::uint64_t{1} << 63U, 2.25};
    const std::vector<std::pair<std::string_view, std::string_view>> cases = {
        {"", ""},
        {"100%%", "100%"},
        {"%@: %d of %lu, %.1f", "disk: -3 of 9223372036854775808, 2.2"},
        {"%s %ld %qd %.0f", "disk -3 9223372036854775808 2"},
        {"%2$lld %1$@ %1$s", "-3 disk disk"},
        {"%@ %@ %u", "disk -3 9223372036854775808"},
        {"%4$.1f %1$@ %2$.1f", "2.2 disk -3.0"},
    };
    for (const auto& [format, text] : cases)
        EXPECT_EQ(FormatText(format, arguments), text);
}

TEST(FormatText, NoFormatReachesBeyondTheArguments) {
    const std::vector<FormatArgument> arguments = {"text", 1};
    for (const char* format :
         {"%@ %@ %@", "%3$@", "%0$@", "%99999999999999999999$@", "%d", "%2$.1f%1$d", "%n", "%p",
          "%x", "%*d", "%", "%1$", "%-1$@", "%.2f", "%1$%", "% d", "%hhd"}) {
        EXPECT_EQ(FormatText(format, arguments), std::nullopt) << format;
    }
}

class LocalizedString : public testing::Test {
 protected:
    ~LocalizedString() override {
        quelm::SetApplicationBundle(nullptr);
        quelm::SetLogSink({});
    }

    void writeTable(const std::string& language, const Dictionary& texts) {
        folder.makeFile(language + ".lproj/Localizable.strings", *quelm::WritePropertyList(texts));
    }

    test_support::TemporaryFolder folder;
};

TEST_F(LocalizedString, ComesFromTheFirstLanguageThatHasIt) {
    EXPECT_EQ(GetLocalizedString("A", "default"), "default");
    writeTable("en", {{"A", "a-en"}, {"B", "b-en"}, {"N", 3}});
    writeTable("de", {{"A", "a-de"}});
    folder.makeFile("fr.lproj/Localizable.strings", "not a table");
    const quelm::Bundle bundle(folder.path(), {"fr", "de_AT", "de"});
    quelm::SetApplicationBundle(&bundle);
    EXPECT_EQ(GetLocalizedString("A", "default"), "a-de");
    EXPECT_EQ(GetLocalizedString("B", "default"), "b-en");
    EXPECT_EQ(GetLocalizedString("N", "default"), "default");
    EXPECT_EQ(GetLocalizedString("C", "default"), "default");
}

TEST_F(LocalizedString, ATranslationThatDoesNotFitIsReplacedByTheDefault) {
    writeTable("en", {{"Good", "%2$d Dateien auf %1$@"}, {"Bad", "%s%s%n"}});
    const quelm::Bundle bundle(folder.path(), {});
    quelm::SetApplicationBundle(&bundle);
    std::vector<std::string> log;
    quelm::SetLogSink([&](std::string_view line) { log.emplace_back(line); });
    EXPECT_EQ(FormatLocalizedString("Good", "%@ has %d files", {"disk", 3}), "3 Dateien auf disk");
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(FormatLocalizedString("Bad", "%@ has %d files", {"disk", 3}), "disk has 3 files");
    ASSERT_EQ(log.size(), 1U);
    EXPECT_TRUE(log[0].starts_with("WARNING: "));
}

TEST_F(LocalizedString, LanguagesComeFromTheEnvironment) {
    const test_support::ScopedEnvironment first("LANGUAGE", std::nullopt);
    const test_support::ScopedEnvironment all("LC_ALL", std::nullopt);
    const test_support::ScopedEnvironment messages("LC_MESSAGES", "de_AT.UTF-8@euro");
    EXPECT_EQ(quelm::PreferredLanguages(), (std::vector<std::string>{"de_AT", "de"}));
    const test_support::ScopedEnvironment hostile("LANGUAGE", "../../etc:C:fr:x/y");
    EXPECT_EQ(quelm::PreferredLanguages(), (std::vector<std::string>{"fr"}));
}

TEST(Log, AFileNameCannotForgeALine) {
    std::vector<std::string> log;
    quelm::SetLogSink([&](std::string_view line) { log.emplace_back(line); });
    quelm::LogInfo("a\nERROR: b");
    quelm::LogWarning("caf\u00e9");
    quelm::SetLogSink({});
    EXPECT_EQ(log, (std::vector<std::string>{"INFO: a\\x0aERROR: b", "WARNING: caf\u00e9"}));
}

}  // namespace

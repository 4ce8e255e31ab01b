#include <filesystem>
#include <gtest/gtest.h>

#include "foundation/paths/Paths.h"
#include "foundation/system/SystemVersion.h"
#include "foundation/texts/Escaping.h"
#include "foundation/texts/LongDateTime.h"
#include "foundation/texts/Texts.h"
#include "foundation/texts/Utf8.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using quelm::EscapeString;
using quelm::UnescapeString;
using test_support::ScopedEnvironment;

TEST(Texts, SizesChangeTheirUnitAtPowersOf1024) {
    const std::vector<std::pair<std::int64_t, const char*>> cases = {
        {0, "0 B"},
        {1023, "1023 B"},
        {1024, "1.0 KB"},
        {1'048'575, "1024.0 KB"},
        {1'048'576, "1.0 MB"},
        {1'073'741'823, "1024.0 MB"},
        {1'073'741'824, "1.0 GB"},
        {5'000'000'000'000, "4656.6 GB"},
    };
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(quelm::FileSizeString(bytes), text);
}

TEST(Texts, DatesAreLocalOrNumeric) {
    const ScopedEnvironment zone("TZ", "UTC-2");
    tzset();
    EXPECT_EQ(quelm::DateToString(1'700'000'000, false), "2023-11-15 00:13:20");
    EXPECT_EQ(quelm::DateToString(1'700'000'000, true), "1700000000");
    EXPECT_EQ(quelm::TimeToLongDateTime(0), 2'082'844'800);
    EXPECT_EQ(quelm::LongDateTimeToTime(2'082'844'801), 1);
}

TEST(Texts, TheHashTakesBytesAsSigned) {
    EXPECT_EQ(quelm::Hash(""), 5381U);
    EXPECT_EQ(quelm::Hash("a"), 5381U * 33 + 97);
    EXPECT_EQ(quelm::Hash("\xff"), 5381U * 33 - 1);
}

TEST(Texts, TheSystemVersionComesFromTheRunningSystem) {
    EXPECT_TRUE(quelm::GetSystemVersion() == "<unknown>" ||
                quelm::GetSystemVersion().find(' ') != std::string::npos);
    EXPECT_FALSE(quelm::IsSystemVersion(1'000'000, 0, 0));
    EXPECT_EQ(quelm::IsSystemVersion(0, 0, 0), quelm::GetSystemVersion() != "<unknown>");
}

TEST(Paths, ATildeIsTheHomeFolder) {
    {
        const ScopedEnvironment home("HOME", "/home/amy");
        EXPECT_EQ(quelm::ExpandTildeInPath("~/x"), "/home/amy/x");
        EXPECT_EQ(quelm::ExpandTildeInPath("~"), "/home/amy");
        EXPECT_EQ(quelm::ExpandTildeInPath("~bob"), "/home/amybob");
        EXPECT_EQ(quelm::ExpandTildeInPath("/a/~"), "/a/~");
    }
    const ScopedEnvironment home("HOME", std::nullopt);
    EXPECT_EQ(quelm::ExpandTildeInPath("~/x"), "/x");
}

TEST(Paths, ThePlainFormHasNoEmptyPartsAndNoDots) {
    const ScopedEnvironment home("HOME", "/home/amy/");
    const std::vector<std::pair<std::string_view, std::string_view>> cases = {
        {"", ""},
        {"/", "/"},
        {"///", "/"},
        {"/./", "/"},
        {".", "."},
        {"./", "."},
        {"/a//b/./c/", "/a/b/c"},
        {"./a/", "a"},
        {"a//b", "a/b"},
        {"/a/../b", "/a/../b"},
        {"/.a/b./...", "/.a/b./..."},
        {"~/x/", "/home/amy/x"},
        {"~", "/home/amy"},
        {"/~", "/~"}};
    for (const auto& [path, plain] : cases)
        EXPECT_EQ(quelm::StandardizePath(path), plain) << path;
}

TEST(Paths, WhatCannotBeResolvedStays) {
    const test_support::TemporaryFolder folder;
    folder.makeFolder("a");
    folder.makeLink("link", "a");
    EXPECT_EQ(quelm::GetAbsolutePath(folder.path() + "/link/../link"), folder / "a");
    EXPECT_EQ(quelm::GetAbsolutePath("absent/x"), "absent/x");
}

TEST(Escaping, SpecialCharactersAndControlsAreReplaced) {
    struct Case {
        std::string text;
        std::string escaped;
        std::string withoutControls;
    };
    const std::vector<Case> cases = {
        {"", "", ""},
        {"plain", "plain", "plain"},
        {"<a b=\"c\">&'", "&lt;a%20;b=&quot;c&quot;&gt;&amp;&apos;",
         "&lt;a b=&quot;c&quot;&gt;&amp;&apos;"},
        {"100%\n", "100%25;%A;", "100%\n"},
        {std::string("\0\x1f", 2), "%0;%1F;", std::string("\0\x1f", 2)},
        {"h\u00e9 \u4e2d\U0001F600", "h\u00e9%20;\u4e2d\U0001F600", "h\u00e9 \u4e2d\U0001F600"},
        // from the first byte that is no UTF-8 on, entities and controls stay as they are
        {"<\xff<\n\x80", "&lt;%FF;<\n%80;", "&lt;%FF;<\n%80;"},
        {"\xc3", "%C3;", "%C3;"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(EscapeString(c.text), c.escaped);
        EXPECT_EQ(quelm::EscapeXmlString(c.text), c.escaped);
        EXPECT_EQ(EscapeString(c.text, false), c.withoutControls);
    }
}

TEST(Escaping, EveryPositionOfALongTextIsSeen) {
    // the scan takes blocks, and each place in one must be looked at
    for (std::size_t at = 0; at < 200; ++at) {
        std::string text(200, 'x');
        text[at] = '&';
        const std::string expected = std::string(at, 'x') + "&amp;" + std::string(199 - at, 'x');
        ASSERT_EQ(EscapeString(text), expected) << at;
        ASSERT_EQ(UnescapeString(expected), text) << at;
    }
}

TEST(Escaping, UnescapingReversesAndLeavesWhatIsNoEscape) {
    std::string everyAsciiByte;
    for (char c = 0; c < 127; ++c)
        everyAsciiByte += c;
    EXPECT_EQ(UnescapeString(EscapeString(everyAsciiByte)), everyAsciiByte);
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"%41;%ff;", "A\xff"},
        {"%", "%"},
        {"%;", "%;"},
        {"%4", "%4"},
        {"%4g;", "%4g;"},
        {"%%41;", "%A"},
        {"&amp;lt;", "&lt;"},
        {"&unknown;&", "&unknown;&"},
        {"%000041;", "A"},
        {"%100;", "%100;"},
        {"%41;%100;&amp;", "%41;%100;&amp;"},
        {"%FFFFFFFFFFFFFFFFFFFF;", "%FFFFFFFFFFFFFFFFFFFF;"},
    };
    for (const auto& [text, unescaped] : cases)
        EXPECT_EQ(UnescapeString(text), unescaped) << text;
}

TEST(Utf8, CharactersAreMeasured) {
    EXPECT_EQ(quelm::DecodeCharFromUtf8String("a"), 1U);
    EXPECT_EQ(quelm::DecodeCharFromUtf8String("\u4e2dx"), 3U);
    for (const char* invalid :
         {"", "\x80", "\xc3", "\xc0\xaf", "\xed\xa0\x80", "\xf5\x80\x80\x80"}) {
        EXPECT_EQ(quelm::DecodeCharFromUtf8String(invalid), 0U);
    }
    EXPECT_TRUE(quelm::IsValidUtf8(std::string(100, 'a') + "\u00e9\u00e9"));
    EXPECT_FALSE(quelm::IsValidUtf8(std::string(100, 'a') + "\xe9"));
    EXPECT_TRUE(quelm::IsXmlText("tab\tline\n\r\u00e9"));
    for (const char* forbidden : {"\x01", "\x1b", "\uFFFF", "\xff"}) {
        EXPECT_FALSE(quelm::IsXmlText(forbidden));
    }
    EXPECT_FALSE(quelm::IsXmlText(std::string_view("\0", 1)));
}

}  // namespace

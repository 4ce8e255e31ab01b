#include <clocale>
#include <fnmatch.h>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "accounts/filters/FilenameFilter.h"
#include "accounts/filters/ShellPattern.h"

namespace {

using orv::MatchesShellPattern;

bool matches(const orv::orv_FilenameFilter& filter, const std::string& name) {
    return filter.isIncluded(name.data(), static_cast<std::uint32_t>(name.size()));
}

TEST(FilenameFilter, APatternIsClassifiedOnceAndThenCompared) {
    struct Case {
        const char* pattern;
        orv::FilterFunction function;
        const char* compared;
        std::vector<std::string> matching;
        std::vector<std::string> others;
    };
    const Case cases[] = {
        {"", orv::FilterFunctionAll, "", {"", "a"}, {}},
        {"*", orv::FilterFunctionAll, "*", {"", "a"}, {}},
        {"*.pdf", orv::FilterFunctionSuffix, ".pdf", {"REPORT.PDF", ".pdf"}, {"pdf", "a.pdf "}},
        {"*crw", orv::FilterFunctionSuffix, "crw", {"rawcrw", "a.CRW"}, {"crw.a", "rw"}},
        {"*[a]", orv::FilterFunctionSuffix, "[a]", {"x[A]"}, {"xa"}},
        {"Backup*", orv::FilterFunctionPrefix, "Backup", {"backup 2", "BACKUP"}, {"a backup"}},
        {"[a]*", orv::FilterFunctionPrefix, "[a]", {"[a]b"}, {"ab"}},
        {"a*b", orv::FilterFunctionFnmatch, "a*b", {"ab", "A/x/B"}, {"abc", "a"}},
        {"*.tar.*", orv::FilterFunctionFnmatch, "*.tar.*", {".tar.", "a.TAR.gz"}, {"a.tar"}},
        {"?x", orv::FilterFunctionFnmatch, "?x", {".x", "/X"}, {"x", "\xc3\xa4x"}},
        {"**", orv::FilterFunctionFnmatch, "**", {"", "a"}, {}},
        {"*a*", orv::FilterFunctionFnmatch, "*a*", {"a", "bab"}, {"b", ""}},
        {"*\\*", orv::FilterFunctionFnmatch, "*\\*", {"a*"}, {"a\\", "a"}},
        {"*.x?", orv::FilterFunctionFnmatch, "*.x?", {".xy"}, {".x"}},
        {" *.sxi", orv::FilterFunctionFnmatch, " *.sxi", {" a.sxi"}, {"a.sxi"}},
        {"name", orv::FilterFunctionFnmatch, "name", {"NAME"}, {"name2", ""}},
        {"\xff*", orv::FilterFunctionPrefix, "\xff", {"\xff\xfe"}, {"\xdf"}},
    };
    for (const Case& expected : cases) {
        const orv::orv_FilenameFilter filter(expected.pattern, 7);
        EXPECT_EQ(filter.function(), expected.function) << expected.pattern;
        EXPECT_EQ(filter.comparedPattern(), expected.compared);
        EXPECT_EQ(filter.givenPattern(), *expected.pattern ? expected.pattern : "*");
        EXPECT_EQ(filter.getFilterType(), 7U);
        for (const auto& name : expected.matching)
            EXPECT_TRUE(matches(filter, name)) << expected.pattern << " on " << name;
        for (const auto& name : expected.others)
            EXPECT_FALSE(matches(filter, name)) << expected.pattern << " on " << name;
    }
}

/// A text of up to eight of the pieces.
std::string anyOf(const std::vector<std::string>& pieces, std::mt19937& random) {
    std::string text;
    for (auto count = random() % 8; count > 0; --count)
        text += pieces[random() % pieces.size()];
    return text;
}

TEST(ShellPattern, MeansWhatTheCLibraryMeansInTheCLocale) {
    const std::vector<std::string> patternPieces = {
        "a",           "B",           "z",           "*",          "*",           "?",
        ".",           "-",           "]",           "!",          "\\",          "\xe4",
        "\\*",         "[a-z]",       "[!a]",        "[^b]",       "[A-Z]",       "[Z-a]",
        "[]a]",        "[!]a]",       "[a\\]b]",     "[\\a-\\z]",  "[a-]",        "[--z]",
        "[z-\xe4]",    "[",           "[a",          "[!",         "[[",          "[x[:foo:]",
        "[[=a=]]",     "[[.A.]]",     "[[.A.]-z]",   "[[:foo:]x]", "[[:alpha:]]", "[[:alnum:]]",
        "[[:upper:]]", "[[:lower:]]", "[[:punct:]b]"};
    const std::vector<std::string> namePieces = {"a", "A", "b", "B", "z", "Z",  "-", "[",
                                                 "]", ".", "*", "!", "_", "\\", "0", "\xe4"};
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
    std::mt19937 random(3);
    int matched = 0;
    for (int i = 0; i < 300'000; ++i) {
        const std::string pattern = anyOf(patternPieces, random);
        const std::string name = anyOf(namePieces, random);
        const bool expected = fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD) == 0;
        matched += expected;
        ASSERT_EQ(MatchesShellPattern(pattern, name), expected) << pattern << " on " << name;
    }
    EXPECT_GT(matched, 5'000);
    std::setlocale(LC_ALL, locale.c_str());
}

TEST(ShellPattern, KnowsEveryByteOfEveryClass) {
    ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
    for (const std::string name : {"alnum", "alpha", "blank", "cntrl", "digit", "graph", "lower",
                                   "print", "punct", "space", "upper", "xdigit"}) {
        const std::string pattern = "[[:" + name + ":]]";
        for (int byte = 1; byte < 256; ++byte) {
            const std::string text(1, static_cast<char>(byte));
            const bool expected = fnmatch(pattern.c_str(), text.c_str(), FNM_CASEFOLD) == 0;
            EXPECT_EQ(MatchesShellPattern(pattern, text), expected) << name << " " << byte;
        }
    }
}

TEST(ShellPattern, IsTheSameInEveryLocale) {
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    EXPECT_TRUE(MatchesShellPattern("[a]?*", "A\xff"));
    EXPECT_FALSE(MatchesShellPattern("?", "\xc3\xa4")) << "a byte each, not a character";
    EXPECT_FALSE(MatchesShellPattern("\xc3\x84", "\xc3\xa4")) << "only ASCII letters fold";
    std::setlocale(LC_ALL, "C");
}

TEST(ShellPattern, NoPatternTakesLongerThanTheProductOfTheLengths) {
    const std::string name(255, 'a');
    std::string stars, sets;
    for (int i = 0; i < 2'000; ++i) {
        stars += "*a*";
        sets += "*[!b-z]";
    }
    // by trying every way to share the name among the stars, none of these would ever end
    EXPECT_FALSE(MatchesShellPattern(stars, name));
    EXPECT_FALSE(MatchesShellPattern(sets.substr(0, 7 * 200) + "b", name));
    EXPECT_TRUE(MatchesShellPattern(sets.substr(0, 7 * 255), name));
    EXPECT_TRUE(MatchesShellPattern(std::string(1'000'000, '*'), name));
    EXPECT_FALSE(MatchesShellPattern("[" + std::string(100'000, 'b'), name));
    // each "[" stands for itself, for want of a "]" that could end it
    for (const char* end : {"!", "\\]", "[:foo:]!"}) {
        EXPECT_FALSE(MatchesShellPattern("*" + std::string(10'000, '[') + end,
                                         std::string(2'000, '[') + "x"));
    }
}

}  // namespace

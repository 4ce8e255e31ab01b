#include <gtest/gtest.h>

#include "foundation/paths/PathPrefix.h"

namespace {

using Pairs = std::vector<std::pair<std::string_view, std::string_view>>;

void expectStart(bool byBytes, bool withoutCase, const Pairs& pairs) {
    for (const auto& [path, prefix] : pairs) {
        EXPECT_EQ(quelm::StartsWithPath(path, prefix), byBytes) << path << " : " << prefix;
        EXPECT_EQ(orv::StartsWithPath(path, prefix), withoutCase) << path << " : " << prefix;
    }
}

TEST(PathPrefix, EndsAtAComponentBoundary) {
    expectStart(true, true, {{"/a/b", "/a/b"}, {"/a/b/c", "/a/b"}, {"/a", "/"}});
    expectStart(false, false, {{"/a/bc", "/a/b"}, {"/a", "/a/b"}, {"a", "/"}, {"/a/b", "/a/"}});
}

TEST(PathPrefix, CaseIsThatOfUnicodeAndIsIgnoredOnlyWhereAskedTo) {
    expectStart(false, true, {{"/A/B/c", "/a/b"}, {"/Übung/1", "/übung"}});
    // characters of four bytes; one that is longer than its letter
    expectStart(false, true, {{"/\U00010400", "/\U00010428"}, {"/\u212Aelvin/x", "/kelvin"}});
    expectStart(false, true, {{"/kelvin", "/\u212Aelvin"}, {"/A\xFF/x", "/a\xFF"}});
    expectStart(false, false, {{"/A/Bc", "/a/b"}, {"/[/x", "/{"}, {"/u\u0308", "/u"}});
    // bytes that are not text: cut off; half of a surrogate pair
    expectStart(true, true, {{"/\xF0\x90", "/\xF0\x90"}, {"/\xED\xA0\x80", "/\xED\xA0\x80"}});
    // a letter's cases in another encoding; a character and its first byte
    expectStart(false, false, {{"/\xFC", "/\xDC"}, {"/\xC3\xBC", "/\xC3"}, {"/\xFF", "/\u00FF"}});
}

TEST(PathPrefix, TheSamePathMayDifferInCaseAlone) {
    for (const auto& [left, right] :
         Pairs{{"", ""}, {"/A/b", "/a/B"}, {"/\u212Aelvin/x", "/kelvin/X"}, {"/Übung", "/übung"}}) {
        EXPECT_TRUE(orv::IsSamePath(left, right)) << left << " : " << right;
        EXPECT_TRUE(orv::IsSamePath(right, left)) << left << " : " << right;
    }
    for (const auto& [left, right] :
         Pairs{{"", "/"}, {"/a", "/a/b"}, {"/b", "/a/b"}, {"/[", "/{"}, {"/\xFFx", "/\xFEx"}}) {
        EXPECT_FALSE(orv::IsSamePath(left, right)) << left << " : " << right;
        EXPECT_FALSE(orv::IsSamePath(right, left)) << left << " : " << right;
    }
}

TEST(PathPrefix, AFolderHoldsOnlyItsDirectChildren) {
    EXPECT_TRUE(quelm::IsInFolder("/a/b", "/a/"));
    for (const auto* path : {"/a", "/a/", "/a/b/", "/a/b/c", "/A/b"})
        EXPECT_FALSE(quelm::IsInFolder(path, "/a/")) << path;
}

}  // namespace

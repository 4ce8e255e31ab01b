#include <gtest/gtest.h>

#include "foundation/paths/PathPrefix.h"

namespace {

TEST(PathPrefix, EndsAtAComponentBoundary) {
    const struct {
        std::string_view path;
        std::string_view prefix;
        bool startsWith;
    } cases[] = {
        {"/a/b", "/a/b", true}, {"/a/b/c", "/a/b", true}, {"/a/bc", "/a/b", false},
        {"/a", "/a/b", false},  {"/a", "/", true},        {"a", "/", false},
        {"", "", true},         {"/a", "", true},         {"a", "", false},
        {"/a/", "/a", true},    {"/a/b", "/a/", false},   {"/a/", "/a/", true},
        {"", "/", false},
    };
    for (const auto& [path, prefix, startsWith] : cases) {
        EXPECT_EQ(quelm::StartsWithPath(path, prefix), startsWith) << path << " : " << prefix;
        EXPECT_EQ(orv::StartsWithPath(path, prefix), startsWith) << path << " : " << prefix;
    }
}

TEST(PathPrefix, CaseCountsOnlyForByteStrings) {
    const struct {
        std::string_view path;
        std::string_view prefix;
        bool startsWith;
    } cases[] = {
        {"/A/B/c", "/a/b", true},
        {"/a/b/c", "/A/B", true},
        {"/A/Bc", "/a/b", false},
        {"/[/x", "/{", false},
        {"/Übung/1", "/übung", true},
        {"/ЖУРНАЛ", "/журнал", true},
        {"/\u212Aelvin/x", "/kelvin", true},  // the sign is longer than the letter
        {"/kelvin", "/\u212Aelvin", true},
        {"/\U00010400/x", "/\U00010428", true},
        {"/ü", "/u", false},
        {"/u\u0308", "/u", false},
    };
    for (const auto& [path, prefix, startsWith] : cases) {
        EXPECT_EQ(orv::StartsWithPath(path, prefix), startsWith) << path << " : " << prefix;
        EXPECT_FALSE(quelm::StartsWithPath(path, prefix)) << path << " : " << prefix;
    }
}

TEST(PathPrefix, BytesThatAreNotTextEqualOnlyThemselves) {
    const struct {
        std::string_view path;
        std::string_view prefix;
        bool startsWith;
    } cases[] = {
        {"/A\xFF/x", "/a\xFF", true},
        {"/\xFE", "/\xFF", false},
        {"/\xFC", "/\xDC", false},      // letters of one another in another encoding
        {"/\xC3\xBC", "/\xC3", false},  // a character against its first byte
        {"/\xC3/x", "/\xC3", true},     // cut off at the end
        {"/\xF0\x90\x90", "/\xF0\x90\x90", true},
        {"/\xED\xA0\x80", "/\xED\xA0\x80", true},  // half of a surrogate pair
        {"/\xFF", "/\u00FF", false},
    };
    for (const auto& [path, prefix, startsWith] : cases) {
        EXPECT_EQ(orv::StartsWithPath(path, prefix), startsWith) << path << " : " << prefix;
    }
}

TEST(PathPrefix, AFolderHoldsOnlyItsDirectChildren) {
    EXPECT_TRUE(quelm::IsInFolder("/a/b", "/a/"));
    EXPECT_TRUE(quelm::IsInFolder("/a", "/"));
    EXPECT_FALSE(quelm::IsInFolder("/a/", "/a/"));
    EXPECT_FALSE(quelm::IsInFolder("/a/b/c", "/a/"));
    EXPECT_FALSE(quelm::IsInFolder("/a/b/", "/a/"));
    EXPECT_FALSE(quelm::IsInFolder("/A/b", "/a/"));
    EXPECT_FALSE(quelm::IsInFolder("/a", "/a/"));
}

}  // namespace

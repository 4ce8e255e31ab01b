#include <gtest/gtest.h>
#include <string>

#include "foundation/paths/ParsedPath.h"

namespace {

using quelm::CParsedPath;

static_assert(!std::is_constructible_v<CParsedPath, std::string, unsigned>);

TEST(ParsedPath, IsSplitAtSingleSlashes) {
    const std::tuple<std::string_view, unsigned, std::string_view> cases[] = {
        {"/a/b", 1, "a:b:"}, {"/a/b", 0, "/a:b:"}, {"a/b/", 0, "a:b:"}, {"a//b", 0, "a:/b:"},
        {"a//", 0, "a:/:"},  {"//", 1, "/:"},      {"/", 0, "/:"},      {"/", 1, ""},
        {"", 0, ""},         {"/a", 9, ""},
    };
    for (const auto& [path, start, components] : cases) {
        CParsedPath parsed(path, 1);
        parsed.Parse(start);  // replaces what is there
        std::string found;
        for (std::size_t i = 0; i < parsed.componentCount(); ++i)
            found.append(parsed.component(i)) += ":";
        EXPECT_EQ(found, components) << path << " from " << start;
    }
}

TEST(ParsedPath, IsHiddenByAnyComponentThatBeginsWithADot) {
    for (const auto* path : {"/a/.b/c", "/.a", "/a/."})
        EXPECT_TRUE(CParsedPath(path, 1).IsHidden()) << path;
    for (const auto* path : {"/a/b.c", "/a//.b", "/a/", "/", ""})
        EXPECT_FALSE(CParsedPath(path, 1).IsHidden()) << path;
}

TEST(ParsedPath, TellsADirectChildFromAnythingDeeper) {
    const std::tuple<std::string_view, std::string_view, bool, bool> cases[] = {
        {"/a/b", "/a", true, true},    {"/a/b/", "/a", true, true},   {"/a/b/c", "/a", false, true},
        {"/a/b", "/ab", false, false}, {"/ab/c", "/a", false, false}, {"/a", "/a", false, true},
        {"/a/", "/a", false, true},    {"/A/b", "/a", false, false},  {"/b", "", true, true},
        {"/b", "/", false, true},      {"b", "/", false, false},      {"/a//b", "/a", true, true},
        {"/a/b", "/a/", false, false}, {"", "/", false, false},       {"", "", false, true},
    };
    for (const auto& [path, folder, inFolder, subpath] : cases) {
        EXPECT_EQ(CParsedPath(path, 1).IsInFolder(folder), inFolder) << path << " in " << folder;
        EXPECT_EQ(CParsedPath(path, 1).IsSubpathOf(folder), subpath) << path << " of " << folder;
    }
}

TEST(ParsedPath, ContainsOnlyWholeComponents) {
    for (const auto* name : {"a", ".b", "cd"})
        EXPECT_TRUE(CParsedPath("/a/.b/cd", 1).ContainsComponent(name)) << name;
    for (const auto* name : {"b", "c", "A", "a/.b", "cd/", ""})
        EXPECT_FALSE(CParsedPath("/a/.b/cd", 1).ContainsComponent(name)) << name;
}

}  // namespace

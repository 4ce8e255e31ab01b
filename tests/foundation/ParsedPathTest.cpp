#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "foundation/paths/ParsedPath.h"

namespace quelm {

namespace {

using Components = std::vector<std::string>;

static_assert(!std::is_constructible_v<CParsedPath, std::string, unsigned>);
static_assert(!std::is_constructible_v<CParsedPath, const std::string, unsigned>);
static_assert(std::is_constructible_v<CParsedPath, std::string&, unsigned>);
static_assert(std::is_constructible_v<CParsedPath, const char*, unsigned>);

Components componentsOf(std::string_view path, unsigned start) {
    const CParsedPath parsed(path, start);
    Components components;
    for (std::size_t i = 0; i < parsed.componentCount(); ++i) {
        components.emplace_back(parsed.component(i));
    }
    return components;
}

TEST(ParsedPath, IsSplitAtSingleSlashes) {
    const struct {
        std::string_view path;
        unsigned start;
        Components components;
    } cases[] = {
        {"/a/b", 1, {"a", "b"}},
        {"/a/b", 0, {"/a", "b"}},
        {"a/b", 0, {"a", "b"}},
        {"a/b/", 0, {"a", "b"}},
        {"a//b", 0, {"a", "/b"}},
        {"a//", 0, {"a", "/"}},
        {"a///b", 0, {"a", "/", "b"}},
        {"//", 1, {"/"}},
        {"/", 0, {"/"}},
        {"/", 1, {}},
        {"", 0, {}},
        {"", 1, {}},
        {"/a", 9, {}},
        {"/long/enough/to/outgrow/the/usual/room/1/2/3/4/5/6/7/8/9",
         1,
         {"long", "enough", "to", "outgrow", "the", "usual", "room", "1", "2", "3", "4", "5", "6",
          "7", "8", "9"}},
    };
    for (const auto& [path, start, components] : cases) {
        EXPECT_EQ(componentsOf(path, start), components) << path << " from " << start;
    }
}

TEST(ParsedPath, ParsingAgainReplacesTheComponents) {
    CParsedPath path("/a/.b", 1);
    EXPECT_TRUE(path.IsHidden());
    path.Parse(4);
    EXPECT_EQ(path.componentCount(), 1U);
    EXPECT_EQ(path.component(0), "b");
    EXPECT_FALSE(path.IsHidden());
}

TEST(ParsedPath, IsHiddenByAnyComponentThatBeginsWithADot) {
    const struct {
        std::string_view path;
        bool hidden;
    } cases[] = {
        {"/a/.b/c", true}, {"/.a", true}, {"/a/b.c", false}, {"/a//.b", false},
        {"/a/", false},    {"/", false},  {"", false},       {"/a/.", true},
    };
    for (const auto& [path, hidden] : cases) {
        EXPECT_EQ(CParsedPath(path, 1).IsHidden(), hidden) << path;
    }
}

TEST(ParsedPath, TellsADirectChildFromAnythingDeeper) {
    const struct {
        std::string_view path;
        std::string_view folder;
        bool inFolder;
        bool subpath;
    } cases[] = {
        {"/a/b", "/a", true, true},    {"/a/b/", "/a", true, true},   {"/a/b/c", "/a", false, true},
        {"/a/b", "/ab", false, false}, {"/ab/c", "/a", false, false}, {"/a", "/a", false, true},
        {"/a/", "/a", false, true},    {"/A/b", "/a", false, false},  {"/x/b", "/a", false, false},
        {"/b", "", true, true},        {"/b", "/", false, true},      {"b", "/", false, false},
        {"/a//b", "/a", true, true},   {"/a/b", "/a/", false, false}, {"/", "/a", false, false},
        {"", "/", false, false},       {"", "", false, true},
    };
    for (const auto& [path, folder, inFolder, subpath] : cases) {
        const CParsedPath parsed(path, 1);
        EXPECT_EQ(parsed.IsInFolder(folder), inFolder) << path << " in " << folder;
        EXPECT_EQ(parsed.IsSubpathOf(folder), subpath) << path << " below " << folder;
    }
}

TEST(ParsedPath, ContainsOnlyWholeComponents) {
    const CParsedPath path("/a/.b/cd", 1);
    for (const auto name : {"a", ".b", "cd"})
        EXPECT_TRUE(path.ContainsComponent(name)) << name;
    for (const auto name : {"b", "c", "d", "A", "a/.b", "cd/", ""}) {
        EXPECT_FALSE(path.ContainsComponent(name)) << name;
    }
    EXPECT_FALSE(CParsedPath("/", 1).ContainsComponent(""));
}

}  // namespace

}  // namespace quelm

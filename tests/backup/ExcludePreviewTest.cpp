#include <gtest/gtest.h>
#include <limits>

#include "backup/scanner/ExcludePreview.h"

namespace {

using orv::PreviewExclude;
using orv::ScannedFiles;

std::shared_ptr<const ScannedFiles> filesOf(
    const std::string& folder, const std::vector<std::pair<std::string, std::uint64_t>>& files) {
    std::string packed;
    for (const auto& [name, size] : files)
        ScannedFiles::pack(packed, name, size);
    return std::make_shared<const ScannedFiles>(folder, packed);
}

TEST(ScannedFiles, GiveBackAnyNameAndSize) {
    using Largest = std::numeric_limits<std::uint64_t>;
    std::vector<std::pair<std::string, std::uint64_t>> files = {
        {"a", 0},
        {std::string(127, 'b'), 127},
        {std::string(128, 'c'), 128},
        {"\xFF\n\x80", 16'384},
        {std::string(255, 'd'), Largest::max()}};
    const auto packed = filesOf("/f", files);
    std::vector<std::pair<std::string, std::uint64_t>> found;
    for (const auto [name, size] : *packed)
        found.emplace_back(name, size);
    EXPECT_EQ(found, files);
}

TEST(ExcludePreview, CountsAllMatchesAndNamesTheFirst) {
    const auto preview = PreviewExclude("*.TXT",
                                        {filesOf("/a", {{"one.txt", 1}, {"two.pdf", 2}}),
                                         filesOf("/b", {{"three.txt", 3}, {"four.txt", 4}})},
                                        2, {});
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->files, 3U);
    EXPECT_EQ(preview->bytes, 8U);
    ASSERT_EQ(preview->first.size(), 2U);
    EXPECT_EQ(preview->first[0].name, "one.txt");
    EXPECT_EQ(preview->first[1].name, "three.txt");
    EXPECT_EQ(preview->first[1].size, 3U);
    EXPECT_EQ(preview->first[1].folder, "/b");
}

TEST(ExcludePreview, KeepsSumsInTheirRangeAndStops) {
    constexpr auto largest = std::numeric_limits<std::uint64_t>::max();
    const auto folder = filesOf("/a", {{"one", largest}, {"two", 5}});
    EXPECT_EQ(PreviewExclude("*", {folder}, 0, {})->bytes, largest);
    std::stop_source source;
    source.request_stop();
    EXPECT_FALSE(PreviewExclude("*", {folder}, 0, source.get_token()));
}

}  // namespace

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include "backup/scanner/HiddenFolderCount.h"
#include "support/PrivateMounts.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::CountHiddenFolders;
using test_support::TemporaryFolder;

TEST(HiddenFolderCount, CountsFilesAndLinksAtAnyDepthAndFollowsNoLink) {
    const TemporaryFolder folder;
    folder.makeFile(".config/a", "1");
    folder.makeFile(".config/.b", "22");
    folder.makeFile(".config/deep/er/c", "333");
    folder.makeFile("outside", "not counted");
    folder.makeLink(".config/link", folder / "outside");
    folder.makeLink(".config/loop", folder / ".config");
    ASSERT_EQ(::mkfifo((folder / ".config/pipe").c_str(), 0600), 0);
    folder.makeFile(".cache/d", "4444");
    folder.makeLink(".link", folder / ".config");

    const auto totals = CountHiddenFolders(
        {folder / ".config", folder / ".cache", folder / ".link", folder / "missing"}, {});
    ASSERT_TRUE(totals);
    EXPECT_EQ(totals->files, 6U);
    EXPECT_EQ(totals->bytes, 10U);
}

TEST(HiddenFolderCount, StaysOnTheFileSystemOfEachFolder) {
    if (const auto why = test_support::WhyNoPrivateMounts(); !why.empty()) GTEST_SKIP() << why;
    const TemporaryFolder folder;
    folder.makeFile(".hidden/file", "1");
    const std::string mounted = folder.makeFolder(".hidden/mounted");
    test_support::WithPrivateMounts([&] {
        ASSERT_EQ(::mount("none", mounted.c_str(), "tmpfs", 0, nullptr), 0);
        folder.makeFile(".hidden/mounted/elsewhere", "22");
        EXPECT_EQ(CountHiddenFolders({folder / ".hidden"}, {})->bytes, 1U);
        EXPECT_EQ(CountHiddenFolders({mounted}, {})->bytes, 2U);
    });
}

TEST(HiddenFolderCount, AnswersNothingOnceItIsToStop) {
    const TemporaryFolder folder;
    std::stop_source source;
    source.request_stop();
    EXPECT_FALSE(CountHiddenFolders({folder.path()}, source.get_token()));
}

}  // namespace

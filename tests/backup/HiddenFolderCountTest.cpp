#include "backup/scanner/HiddenFolderCount.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

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
    struct stat root = {};
    struct stat processes = {};
    if (::stat("/", &root) != 0 || ::stat("/proc/sys", &processes) != 0 ||
        root.st_dev == processes.st_dev) {
        GTEST_SKIP() << "no other file system is mounted at /proc";
    }
    const TemporaryFolder folder;
    folder.makeFile("deep/file", "1");
    EXPECT_EQ(CountHiddenFolders({folder.path()}, {})->files, 1U);
    EXPECT_GT(CountHiddenFolders({"/proc/sys/vm"}, {})->files, 1U);
}

TEST(HiddenFolderCount, AnswersNothingOnceItIsToStop) {
    const TemporaryFolder folder;
    std::stop_source source;
    source.request_stop();
    EXPECT_FALSE(CountHiddenFolders({folder.path()}, source.get_token()));
}

}  // namespace

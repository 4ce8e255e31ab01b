#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "ScannerTestSupport.h"
#include "support/TemporaryFolder.h"

namespace {

using test_support::ScannerUnderTest;
using test_support::TemporaryFolder;
using testing::ElementsAre;
using testing::IsSupersetOf;

/// What is told of a folder on which nothing else is scanned.
std::vector<std::string> scanAlone(const std::string& path, bool readAhead) {
    ScannerUnderTest scanner(readAhead);
    scanner.request(path);
    scanner.untilFinished();
    return scanner.delegate.told;
}

class FolderScannerOrder : public testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(ReadAhead, FolderScannerOrder, testing::Bool());

TEST_P(FolderScannerOrder, TellsOfAFolderBeforeItsSubfoldersAndOfItsSubtreeAfterThem) {
    const TemporaryFolder folder;
    folder.makeFile("top/a.txt", "1");
    folder.makeFile("top/below/b.txt", "22");
    folder.makeFile("top/below/deep/c.txt", "333");
    const std::string top = folder / "top";
    EXPECT_THAT(scanAlone(top, GetParam()),
                ElementsAre(top + ": 1 bytes in 1", top + "/below: 2 bytes in 1",
                            top + "/below/deep: 3 bytes in 1", top + "/below/deep done",
                            top + "/below done", top + " done", "finished"));
}

/// Some hundred folders in a shape that the seed decides.
void makeRandomTree(const TemporaryFolder& folder, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<std::string> folders = {"top"};
    for (int i = 0; i < 400; ++i) {
        const auto& parent = folders[folders.size() - 1 -
                                     random() % std::min<std::size_t>(folders.size(), 1 + i % 90)];
        const std::string path = parent + "/" + std::to_string(i);
        if (random() % 3 != 0) {
            folders.push_back(path);
            folder.makeFolder(path);
        } else {
            folder.makeFile(path, std::string(random() % 50, 'x'));
        }
    }
}

TEST(FolderScanner, TellsTheSameWithAndWithoutReadingAhead) {
    for (const unsigned seed : {1U, 2U, 3U, 4U, 5U}) {
        const TemporaryFolder folder;
        makeRandomTree(folder, seed);
        const auto plain = scanAlone(folder / "top", false);
        EXPECT_GT(plain.size(), 200U);
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(scanAlone(folder / "top", true), plain);
    }
}

}  // namespace

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sys/stat.h>

#include "ScannerTestSupport.h"
#include "support/TemporaryFolder.h"

namespace {

using test_support::ScannerUnderTest;
using test_support::TemporaryFolder;
using testing::ElementsAre;

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
    for (std::size_t i = 0; i < 400; ++i) {
        const std::size_t recent = std::min(folders.size(), 1 + i % 90);
        const std::string& parent = folders[folders.size() - 1 - random() % recent];
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

TEST(FolderScanner, CountsWhatTheFiltersLetThrough) {
    const TemporaryFolder folder;
    const std::string odd = "line\nbreak\xFF.pdf";
    folder.makeFile("a.pdf", "1");
    folder.makeFile(odd, "22");
    folder.makeFile("photo.JPG", "4444");
    folder.makeFile("program.exe", "not included");
    folder.makeFile("draft of b.pdf", "excluded");
    folder.makeFile("large.pdf", std::string(101, 'x'));
    folder.makeFile("limit.pdf", std::string(100, 'x'));
    folder.makeFile(".hidden.pdf", "hidden");
    folder.makeLink("link.pdf", folder / "a.pdf");
    folder.makeLink(".hidden link", "/");
    folder.makeLink("link to a folder", folder / "");
    ASSERT_EQ(::mkfifo((folder / "pipe.pdf").c_str(), 0600), 0);
    folder.makeFile(".hidden folder/c.pdf", "hidden");

    ScannerUnderTest scanner;
    orv::ScannerFilters filters;
    filters.include.addFilter("*.pdf", orv::FILTER_DOCUMENTS);
    filters.include.addFilter("*.jpg", orv::FILTER_IMAGES);
    filters.exclude.addFilter("draft*", orv::FILTER_EXCLUDED);
    filters.maxFileSize = 100;
    scanner.task->setFilters(std::move(filters));
    scanner.request(folder.path());
    scanner.untilFinished();

    ASSERT_EQ(scanner.delegate.results.size(), 1U);
    const auto& result = scanner.delegate.results[0];
    EXPECT_TRUE(result.finished());
    EXPECT_EQ(result.obj(), scanner.object);
    EXPECT_EQ(result.size(), 107U);
    EXPECT_EQ(result.files(), 4U);
    EXPECT_EQ(result.filterSize()[orv::FILTER_DOCUMENTS], 103U);
    EXPECT_EQ(result.filterSize()[orv::FILTER_IMAGES], 4U);
    EXPECT_EQ(result.leftOut().files, 4U);
    EXPECT_EQ(result.leftOut().bytes, 6U);
    EXPECT_THAT(result.leftOut().hiddenFolders, ElementsAre(".hidden folder"));
    std::map<std::string, std::uint64_t> named;
    for (const auto [name, size] : *result.scannedFiles())
        named.emplace(name, size);
    EXPECT_EQ(result.scannedFiles()->folder(), folder.path());
    EXPECT_THAT(named, testing::UnorderedElementsAre(
                           testing::Pair("a.pdf", 1), testing::Pair(odd, 2),
                           testing::Pair("photo.JPG", 4), testing::Pair("limit.pdf", 100)));
}

TEST(FolderScanner, EntersNeitherExcludedFoldersNorVolumesNorLinks) {
    const TemporaryFolder folder;
    const std::string kept = folder.makeFolder("kept/node_modules.old");
    folder.makeFolder("kept/Node_Modules/below");
    const std::string volume = folder.makeFolder("volume");
    folder.makeFolder("volume/below");
    folder.makeLink("link", folder.path());
    folder.makeFolder(".hidden/below");

    ScannerUnderTest scanner;
    orv::ScannerFilters filters;
    filters.excludedFolders = orv::FolderPatterns({"/node_modules(/|$)"});
    filters.unscannedFolders.insert(volume);
    scanner.task->setFilters(std::move(filters));
    scanner.request(folder.path());
    scanner.untilFinished();
    EXPECT_THAT(scanner.delegate.told,
                ElementsAre(folder.path() + ": 0 bytes in 0", folder / "kept: 0 bytes in 0",
                            kept + ": 0 bytes in 0", kept + " done", folder / "kept done",
                            folder.path() + " done", "finished"));
    EXPECT_EQ(scanner.delegate.results[0].scannedFiles(), nullptr);
}

TEST(FolderScanner, SaysNothingOfWhatCannotBeOpened) {
    const TemporaryFolder folder;
    folder.makeFile("file");
    folder.makeFile("a/b/c");
    for (const std::string& path : {folder / "missing", folder / "file", std::string(),
                                    std::string(5000, 'x'), folder / std::string(5000, 'x')}) {
        EXPECT_THAT(scanAlone(path, true), ElementsAre("finished"));
    }

    ScannerUnderTest scanner;
    scanner.gate->hold(folder / "a/b");
    scanner.request(folder.path());
    scanner.gate->awaitArrival(folder / "a/b");
    std::filesystem::remove_all(folder / "a/b");
    scanner.gate->release(folder / "a/b");
    scanner.untilFinished();
    EXPECT_TRUE(scanner.delegate.wasTold(folder / "a done"));
    EXPECT_THAT(scanner.delegate.told, testing::SizeIs(5));
}

/// Folders one in the other until their paths are longer than the system takes.
std::string makeDeepFolders(const TemporaryFolder& folder, std::size_t longest) {
    const std::string name(90, 'd');
    std::string path = folder.path();
    platform::FileDescriptor parent(::open(path.c_str(), O_RDONLY | O_DIRECTORY));
    for (; path.size() <= longest; path += "/" + name) {
        ::mkdirat(parent.get(), name.c_str(), 0700);
        ::mkdirat(parent.get(), "twin", 0700);
        parent.reset(::openat(parent.get(), name.c_str(), O_RDONLY | O_DIRECTORY));
    }
    return path;
}

TEST(FolderScanner, GoesAsDeepAsPathsCanBeLong) {
    const TemporaryFolder folder;
    ASSERT_GT(makeDeepFolders(folder, 5000).size(), 5000U);
    const auto told = scanAlone(folder.path(), true);
    std::size_t longest = 0;
    for (const std::string& line : told) {
        if (line.ends_with(" done")) longest = std::max(longest, line.size() - 5);
    }
    EXPECT_LE(longest, 4096U);
    EXPECT_GT(longest, 4000U);
    EXPECT_EQ(told, scanAlone(folder.path(), false));
}

TEST(FolderScanner, TakesWhatIsRequestedLastAndWhatIsInsertedFirst) {
    const TemporaryFolder folder;
    const std::string a = folder.makeFolder("a");
    const std::string b = folder.makeFolder("b");
    const std::string c = folder.makeFolder("c");
    const std::string d = folder.makeFolder("a/d");
    ScannerUnderTest scanner(false);
    scanner.gate->hold(a);
    scanner.request(a);
    scanner.gate->awaitArrival(a);
    scanner.request(b);
    scanner.request(a);
    scanner.request(b);
    scanner.insert(c);
    scanner.gate->release(a);
    scanner.untilFinished();
    EXPECT_THAT(
        scanner.delegate.told,
        ElementsAre(a + ": 0 bytes in 0", d + ": 0 bytes in 0", d + " done", c + ": 0 bytes in 0",
                    c + " done", a + " done", b + ": 0 bytes in 0", b + " done", "finished"));
}

TEST(FolderScanner, TellsNoEndWhenMoreWasRequestedBeforeItCouldBeTold) {
    const TemporaryFolder folder;
    const std::string first = folder.makeFolder("first");
    const std::string second = folder.makeFolder("second");
    for (int round = 0; round < 50; ++round) {
        ScannerUnderTest scanner;
        scanner.request(first);
        scanner.gate->awaitLeaving(first);
        for (int i = 0; i < 100; ++i)
            std::this_thread::yield();  // the end is as good as sent
        if (round % 2 == 0) {
            scanner.request(second);
        } else {
            scanner.delegate.onResult = [&] {
                if (scanner.delegate.results.size() == 1) scanner.request(second);
            };
        }
        scanner.untilFinished();
        ASSERT_TRUE(scanner.delegate.wasTold(second + " done"));
        // and still there is an end where what was requested is cancelled again
        scanner.request(first);
        scanner.task->cancelAllRequests();
        scanner.delegate.isFinished = false;
        scanner.request(second);
        scanner.untilFinished();
    }
}

TEST(FolderScanner, TellsTheResultButNothingBelowAFolderThatIsCancelledWhileItIsRead) {
    const TemporaryFolder folder;
    const std::string a = folder.makeFolder("a");
    const std::string twin = folder.makeFolder("ab");
    const std::string other = folder.makeFolder("other");
    folder.makeFolder("a/below");
    for (const bool all : {false, true}) {
        ScannerUnderTest scanner;
        scanner.gate->hold(a);
        scanner.request(a);
        scanner.gate->awaitArrival(a);
        scanner.request(other + "/..");
        scanner.request(twin);
        if (all) {
            scanner.task->cancelAllRequests();
        } else {
            EXPECT_FALSE(scanner.task->cancelRequestForPath(a + "/below"));
            EXPECT_TRUE(scanner.task->cancelRequestForPath(a));
            EXPECT_FALSE(scanner.task->cancelRequestForPath(a));
            EXPECT_TRUE(scanner.task->cancelRequestForPath(other));
        }
        scanner.gate->release(a);
        scanner.untilFinished();
        std::vector<std::string> expected = {a + ": 0 bytes in 0"};
        if (!all) {
            expected.push_back(twin + ": 0 bytes in 0");
            expected.push_back(twin + " done");
        }
        expected.emplace_back("finished");
        EXPECT_EQ(scanner.delegate.told, expected);

        // what was cancelled can be asked for anew
        scanner.delegate.isFinished = false;
        scanner.request(a);
        scanner.untilFinished();
        EXPECT_TRUE(scanner.delegate.wasTold(a + "/below done"));
    }
}

TEST(FolderScanner, CancelsNoFolderWhoseNameDiffersInCase) {
    const TemporaryFolder folder;
    const std::string busy = folder.makeFolder("busy");
    const std::string upper = folder.makeFolder("Docs");
    const std::string lower = folder.makeFolder("docs");
    ScannerUnderTest scanner;
    scanner.gate->hold(busy);
    scanner.request(busy);
    scanner.gate->awaitArrival(busy);
    scanner.request(upper);
    scanner.request(lower);
    EXPECT_TRUE(scanner.task->cancelRequestForPath(lower));
    EXPECT_FALSE(scanner.task->cancelRequestForPath(folder / "DOCS"));
    EXPECT_TRUE(scanner.task->cancelRequestForPath(upper));
    scanner.gate->release(busy);
    scanner.untilFinished();
}

TEST(FolderScanner, AppliesChangedFiltersFromTheNextFolderOnAlsoToWhatWasReadAhead) {
    const TemporaryFolder folder;
    const std::string first = folder.makeFolder("first");
    const std::string next = folder.makeFolder("next");
    folder.makeFile("first/a.txt", "1");
    folder.makeFile("next/a.txt", "1");
    ScannerUnderTest scanner;
    scanner.task->stop();
    scanner.gate->hold(first);
    scanner.insert(next);
    scanner.insert(first);
    scanner.task->start();
    scanner.gate->awaitArrival(first);
    // the worker is held up, so that the helper has read it
    scanner.gate->awaitLeaving(next);
    orv::ScannerFilters filters;
    filters.exclude.addFilter("*.txt", orv::FILTER_EXCLUDED);
    scanner.task->setFilters(std::move(filters));
    scanner.gate->release(first);
    scanner.untilFinished();
    EXPECT_TRUE(scanner.delegate.wasTold(first + ": 1 bytes in 1"));
    EXPECT_TRUE(scanner.delegate.wasTold(next + ": 0 bytes in 0"));
    EXPECT_FALSE(scanner.delegate.wasTold(next + ": 1 bytes in 1"));
}

TEST(FolderScanner, StopsAtOnceThoughAFolderHangsAndStartsAnew) {
    const TemporaryFolder folder;
    const std::string hanging = folder.makeFolder("hanging");
    const std::string sound = folder.makeFolder("sound");
    ScannerUnderTest scanner;
    scanner.gate->hold(hanging);
    scanner.request(sound);
    scanner.request(hanging);
    scanner.gate->awaitArrival(hanging);
    scanner.task->stop();
    scanner.handOver();
    EXPECT_THAT(scanner.delegate.told, testing::IsEmpty());
    scanner.request(sound);
    scanner.task->start();
    scanner.handOver();
    EXPECT_THAT(scanner.delegate.told, testing::IsEmpty());

    scanner.request(sound);
    scanner.untilFinished();
    scanner.gate->release(hanging);
    scanner.gate->awaitLeaving(hanging);
    scanner.handOver();
    EXPECT_THAT(scanner.delegate.told,
                ElementsAre(sound + ": 0 bytes in 0", sound + " done", "finished"));
}

TEST(FolderScanner, MayBeDestroyedByWhoeverItTells) {
    const TemporaryFolder folder;
    makeRandomTree(folder, 6);
    ScannerUnderTest scanner;
    scanner.delegate.onResult = [&] { scanner.task.reset(); };
    scanner.request(folder.path());
    scanner.until([&] { return !scanner.task; });
    scanner.handOver();
    EXPECT_THAT(scanner.delegate.told, testing::SizeIs(1));
}

}  // namespace

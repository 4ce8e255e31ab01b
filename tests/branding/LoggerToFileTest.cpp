#include <fcntl.h>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <regex>
#include <sstream>
#include <sys/mount.h>
#include <sys/stat.h>
#include <thread>

#include "config/Locations.h"
#include "foundation/system/Log.h"
#include "support/LoggerToFile.h"
#include "support/PrivateMounts.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::LoggerToFile;
using quelm::LogInfo;
using test_support::ContentOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

mode_t modeOf(const std::string& path) {
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 ? status.st_mode & 0777 : 0;
}

/// What `work` says on the standard error stream, by lines.
template <typename Work>
std::vector<std::string> saidBy(const Work& work) {
    testing::internal::CaptureStderr();
    work();
    return linesOf(testing::internal::GetCapturedStderr());
}

class LoggerToFileTest : public testing::Test {
 protected:
    ~LoggerToFileTest() override { quelm::SetLogSink({}); }

    const test_support::TemporaryFolder folder_;
    const std::string path_ = folder_ / "Library/Logs/Panel.log";
};

TEST_F(LoggerToFileTest, WritesBelowTheHomeFolderForTheUserAlone) {
    const test_support::ScopedEnvironment home("HOME", folder_.path());
    const mode_t before = ::umask(0);
    EXPECT_TRUE(LoggerToFile().redirect(orv::locations::panelLog));
    ::umask(before);
    // the logger itself is gone
    quelm::LogError("No \x1b[31mcolour\nINFO: forged");
    const std::string path = folder_ / "Library/Logs/CorvantaPrefPane.log";
    const std::string content = ContentOf(path);
    const std::regex expected(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} )"
                              R"(ERROR: No \\x1b\[31mcolour\\x0aINFO: forged\n)");
    EXPECT_TRUE(std::regex_match(content, expected)) << content;
    EXPECT_EQ(modeOf(path), 0600U);
    EXPECT_EQ(modeOf(folder_ / "Library/Logs"), 0700U);
    EXPECT_EQ(modeOf(folder_ / "Library"), 0700U);
}

TEST_F(LoggerToFileTest, TakesUpTheFileOfBefore) {
    folder_.makeFile("Library/Logs/Panel.log", "one\ncut o");
    ::chmod(path_.c_str(), 0644);
    ASSERT_TRUE(LoggerToFile().redirect(path_));
    LogInfo("two");
    EXPECT_THAT(linesOf(ContentOf(path_)), ElementsAre("one", "cut o", EndsWith(" INFO: two")));
    EXPECT_EQ(modeOf(path_), 0600U);
}

TEST_F(LoggerToFileTest, LinesOfTwoThreadsStayWholeAndInOrder) {
    constexpr int count = 500;
    ASSERT_TRUE(LoggerToFile().redirect(path_));
    const auto log = [](char name) {
        for (int i = 0; i < count; ++i)
            LogInfo(fmt::format("{}{:03} {}", name, i, std::string(200, name)));
    };
    std::thread other(log, 'a');
    log('b');
    other.join();
    std::string order[2];
    for (const std::string& line : linesOf(ContentOf(path_))) {
        ASSERT_EQ(line.size(), 24 + 6 + 5 + 200U) << line;
        const char name = line[30];
        EXPECT_EQ(line.substr(35), std::string(200, name));
        order[name - 'a'] += line.substr(31, 4);
    }
    std::string expected;
    for (int i = 0; i < count; ++i)
        expected += fmt::format("{:03} ", i);
    EXPECT_EQ(order[0], expected);
    EXPECT_EQ(order[1], expected);
}

TEST_F(LoggerToFileTest, OldFilesBoundTheTotalSize) {
    LoggerToFile logger({.fileSize = 1000, .oldFiles = 3});
    ASSERT_TRUE(logger.redirect(path_));
    for (int i = 0; i < 500; ++i)
        LogInfo(fmt::format("line {}", i));
    LogInfo(std::string(5000, 'x'));
    LogInfo("the last");
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder_ / "Library/Logs")) {
        ++files;
        EXPECT_LE(entry.file_size(), 1000U) << entry.path();
        EXPECT_EQ(modeOf(entry.path()), 0600U) << entry.path();
    }
    EXPECT_EQ(files, 4U);
    EXPECT_THAT(ContentOf(path_), EndsWith(" INFO: the last\n"));
    EXPECT_THAT(ContentOf(folder_ / "Library/Logs/Panel.1.log"), HasSubstr("INFO: line 499\n"));
}

TEST_F(LoggerToFileTest, AsksTheFileForItsSizeAtTheStartAndWhenTold) {
    folder_.makeFile("Library/Logs/Panel.log", std::string(2000, 'x') + "\n");
    LoggerToFile logger({.fileSize = 1000, .oldFiles = 3});
    EXPECT_FALSE(logger.checkLogSize());
    ASSERT_TRUE(logger.redirect(path_));
    const std::string old = folder_ / "Library/Logs/Panel.1.log";
    EXPECT_EQ(ContentOf(path_), "");
    EXPECT_EQ(ContentOf(old).size(), 2001U);

    // another program wrote to it
    folder_.makeFile("Library/Logs/Panel.log", std::string(1500, 'y') + "\n");
    EXPECT_TRUE(logger.checkLogSize());
    EXPECT_EQ(ContentOf(old).size(), 1501U);
    LogInfo("small");
    EXPECT_TRUE(logger.checkLogSize());
    EXPECT_EQ(ContentOf(old).size(), 1501U);

    std::filesystem::remove(path_);
    EXPECT_TRUE(logger.checkLogSize());
    LogInfo("made anew");
    EXPECT_THAT(ContentOf(path_), EndsWith(" INFO: made anew\n"));
}

TEST_F(LoggerToFileTest, LongLinesAreCutBetweenCharacters) {
    LoggerToFile logger({.fileSize = 200, .oldFiles = 1});
    ASSERT_TRUE(logger.redirect(path_));
    std::string text = "x";
    for (int i = 0; i < 100; ++i)
        text += "ü";
    LogInfo(text);
    EXPECT_THAT(ContentOf(path_), EndsWith("üü\n"));
}

TEST_F(LoggerToFileTest, SaysOnceWhyItWritesToTheStandardErrorStream) {
    folder_.makeFile("Library", "in the way of the folder");
    LoggerToFile logger;
    const auto said = saidBy([&] {
        EXPECT_FALSE(logger.redirect(path_));
        EXPECT_FALSE(logger.checkLogSize());
        LogInfo("one");
        LogInfo("two");
    });
    EXPECT_THAT(said, ElementsAre(testing::AllOf(HasSubstr(path_), HasSubstr("Not a directory")),
                                  "INFO: one", "INFO: two"));

    std::filesystem::remove(folder_ / "Library");
    EXPECT_THAT(saidBy([&] {
                    EXPECT_TRUE(logger.checkLogSize());
                    LogInfo("three");
                }),
                ElementsAre());
    EXPECT_THAT(ContentOf(path_), EndsWith(" INFO: three\n"));
}

TEST_F(LoggerToFileTest, NeverWaitsForTheReaderOfAPipe) {
    ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    const test_support::TemporaryFolder& folder = folder_;
    const auto said = saidBy([&] {
        EXPECT_FALSE(LoggerToFile().redirect(folder / "pipe"));
        LogInfo("one");
    });
    EXPECT_THAT(said, ElementsAre(HasSubstr("no regular file"), "INFO: one"));
}

TEST_F(LoggerToFileTest, LosesNoLineToAFullDisk) {
    const auto reason = test_support::WhyNoPrivateMounts();
    if (!reason.empty()) GTEST_SKIP() << reason;
    test_support::WithPrivateMounts([this] {
        const std::string disk = folder_.makeFolder("disk");
        ASSERT_EQ(::mount("none", disk.c_str(), "tmpfs", 0, "size=16k"), 0);
        ASSERT_TRUE(LoggerToFile().redirect(disk + "/Panel.log"));
        const auto said = saidBy([] {
            for (int i = 0; i < 100; ++i)
                LogInfo(fmt::format("{:03} {}", i, std::string(300, 'x')));
        });
        ASSERT_GT(said.size(), 2U);
        EXPECT_THAT(said.front(), HasSubstr("No space left on device"));
        const auto written = linesOf(ContentOf(disk + "/Panel.log"));
        ASSERT_GT(written.size(), 2U);
        // the line at the border may be in both
        EXPECT_GE(written.size() + said.size() - 1, 100U);
        EXPECT_LE(written.size() + said.size() - 1, 101U);
        EXPECT_THAT(said.back(), HasSubstr("INFO: 099"));
    });
}

}  // namespace

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "config/PropertyFiles.h"
#include "foundation/files/FileIo.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/Log.h"
#include "support/PrivateMounts.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using quelm::Array;
using quelm::Dictionary;
using quelm::Value;
using test_support::ContentOf;

void writeRaw(const std::string& path, std::string_view content) {
    std::ofstream(path, std::ios::binary) << content;
}

class PropertyFiles : public testing::Test {
 protected:
    PropertyFiles() {
        quelm::SetLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~PropertyFiles() override { quelm::SetLogSink({}); }

    [[nodiscard]] std::vector<std::string> damagedCopies() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder.path())) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with("a.plist.damaged-")) found.push_back(entry.path().string());
        }
        return found;
    }

    test_support::TemporaryFolder folder;
    const std::string path = folder.path() + "/a.plist";
    std::vector<std::string> log;
};

TEST_F(PropertyFiles, LoadingAMissingFileLeavesAnEmptyPrivateOne) {
    EXPECT_EQ(orv::LoadPropertiesFromFile(path), std::nullopt);
    struct stat info = {};
    ASSERT_EQ(stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_size, 0);
    EXPECT_EQ(info.st_mode & 0777U, 0600U);
}

TEST_F(PropertyFiles, ChangesAreMergedIntoWhatTheFileHolds) {
    ASSERT_TRUE(orv::StorePropertiesToFile(path, Dictionary{{"a", 1}, {"b", 2}}));
    ASSERT_TRUE(orv::ChangePropertiesInFile(path, {{"b", 3}, {"c", 4}}));
    EXPECT_EQ(orv::LoadPropertiesFromFile(path), (Dictionary{{"a", 1}, {"b", 3}, {"c", 4}}));
    ASSERT_TRUE(orv::StoreArrayToFile(path, Array{"x"}));
    EXPECT_EQ(orv::LoadArrayFromFile(path), (Array{"x"}));
}

TEST_F(PropertyFiles, DataReplacesWhatWasLonger) {
    const std::string longer(100, 'l');
    ASSERT_TRUE(orv::StoreDataToFile(path, longer.data(), 100));
    ASSERT_TRUE(orv::StoreDataToFile(path, "0123456789", 10));
    EXPECT_EQ(ContentOf(path), "0123456789");
    std::string data = "old";
    ASSERT_TRUE(orv::LoadDataFromFile(path, data));
    EXPECT_EQ(data, "0123456789");
    EXPECT_FALSE(orv::LoadDataFromFile(folder.path() + "/absent/a", data));
    EXPECT_EQ(data, "");
}

TEST_F(PropertyFiles, AFileThatCannotBeOpenedIsReportedAndNotLogged) {
    const std::string absent = folder.path() + "/absent/a.plist";
    EXPECT_EQ(orv::LoadPropertiesFromFile(absent), std::nullopt);
    EXPECT_FALSE(orv::StorePropertiesToFile(absent, Dictionary{}));
    EXPECT_FALSE(orv::ChangePropertiesInFile(absent, {}));
    // a pipe in the file's place would block a reader for ever
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(orv::LoadPropertiesFromFile(path), std::nullopt);
    EXPECT_FALSE(orv::StorePropertiesToFile(path, Dictionary{}));
    EXPECT_FALSE(orv::ChangePropertiesInFile(folder.path(), {}));
    EXPECT_TRUE(log.empty());
}

TEST_F(PropertyFiles, ALinkIsFollowedAndStays) {
    const std::string target = folder.path() + "/target.plist";
    ASSERT_EQ(symlink(target.c_str(), path.c_str()), 0);
    ASSERT_TRUE(orv::ChangePropertiesInFile(path, {{"a", 1}}));
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(orv::LoadPropertiesFromFile(target), (Dictionary{{"a", 1}}));
}

TEST_F(PropertyFiles, WhatCannotBeParsedIsKeptBeforeItIsOverwritten) {
    const std::vector<std::string> damaged = {"<plist><dict><key>a</key>", "garbage",
                                              "bplist00\x01", "<plist><array/></plist>",
                                              std::string("<plist><dict/></plist>\0\0", 24)};
    for (const std::string& content : damaged) {
        writeRaw(path, content);
        ASSERT_TRUE(orv::ChangePropertiesInFile(path, {{"a", 1}}));
        EXPECT_EQ(orv::LoadPropertiesFromFile(path), (Dictionary{{"a", 1}}));
        const auto copies = damagedCopies();
        ASSERT_EQ(copies.size(), 1U) << content;
        EXPECT_EQ(ContentOf(copies[0]), content);
        fs::remove(copies[0]);
    }
    EXPECT_EQ(log.size(), damaged.size());
}

TEST_F(PropertyFiles, StoringKeepsADamagedFileToo) {
    ASSERT_TRUE(orv::StorePropertiesToFile(path, Dictionary{{"a", 1}}));
    EXPECT_TRUE(damagedCopies().empty());
    // broken by somebody else after this process last saw it whole
    writeRaw(path, "<plist><dict>");
    ASSERT_TRUE(orv::StorePropertiesToFile(path, Dictionary{{"a", 2}}));
    EXPECT_EQ(damagedCopies().size(), 1U);
    ASSERT_TRUE(orv::StorePropertiesToFile(path, Dictionary{{"a", 3}}));
    EXPECT_EQ(damagedCopies().size(), 1U);
}

TEST_F(PropertyFiles, AValueThatNoFileCanHoldLeavesTheFileAsItWas) {
    ASSERT_TRUE(orv::StorePropertiesToFile(path, Dictionary{{"a", 1}}));
    const std::string before = ContentOf(path);
    EXPECT_FALSE(orv::ChangePropertiesInFile(path, {{"a", "bell\a"}}));
    EXPECT_TRUE(orv::StorePropertiesToFile(path, Value("\xff")));
    EXPECT_EQ(ContentOf(path), before);
    EXPECT_EQ(log.size(), 2U);
}

void expectOldContentOnAFullDisk(const std::string& disk) {
    ASSERT_EQ(mount("none", disk.c_str(), "tmpfs", 0, "size=16k"), 0);
    const std::string small = disk + "/a.plist";
    EXPECT_TRUE(orv::StorePropertiesToFile(small, Dictionary{{"a", 1}}));
    const std::string before = ContentOf(small);
    const Dictionary large{{"b", std::string(100'000, 'x')}};
    EXPECT_FALSE(orv::ChangePropertiesInFile(small, large));
    EXPECT_TRUE(orv::StorePropertiesToFile(small, large));
    EXPECT_EQ(ContentOf(small), before);
    // no room for a copy of what is damaged: it stays as it is
    writeRaw(small, std::string(12'000, 'x'));
    EXPECT_FALSE(orv::ChangePropertiesInFile(small, {{"a", 2}}));
    EXPECT_EQ(ContentOf(small), std::string(12'000, 'x'));
    EXPECT_EQ(std::distance(fs::directory_iterator(disk), {}), 1);
}

TEST_F(PropertyFiles, AFullDiskLeavesTheOldContent) {
    if (const auto why = test_support::WhyNoPrivateMounts(); !why.empty()) GTEST_SKIP() << why;
    test_support::WithPrivateMounts([this] { expectOldContentOnAFullDisk(folder.path()); });
}

TEST_F(PropertyFiles, AFileBeyondTheLimitIsKeptAndReplaced) {
    writeRaw(path, "x");
    const auto limit = quelm::PropertyListLimits{}.bytes;
    ASSERT_EQ(truncate(path.c_str(), static_cast<off_t>(limit + 1)), 0);
    EXPECT_EQ(orv::LoadPropertiesFromFile(path), std::nullopt);
    ASSERT_TRUE(orv::ChangePropertiesInFile(path, {{"a", 1}}));
    EXPECT_EQ(orv::LoadPropertiesFromFile(path), (Dictionary{{"a", 1}}));
    ASSERT_EQ(damagedCopies().size(), 1U);
    EXPECT_EQ(fs::file_size(damagedCopies()[0]), limit + 1);
}

TEST_F(PropertyFiles, EveryOperationWaitsForTheLock) {
    ASSERT_TRUE(orv::StorePropertiesToFile(path, Dictionary{{"a", 1}}));
    quelm::FileDescriptor holder(quelm::OpenExclusive(path));
    ASSERT_TRUE(holder);
    std::thread other([&] { EXPECT_TRUE(orv::ChangePropertiesInFile(path, {{"b", 2}})); });
    // whatever the other thread has reached, nothing may have changed while the lock is held
    for (int i = 0; i < 1000; ++i)
        std::this_thread::yield();
    EXPECT_EQ(ContentOf(path).find("<key>b</key>"), std::string::npos);
    holder.reset();
    other.join();
    EXPECT_EQ(orv::LoadPropertiesFromFile(path), (Dictionary{{"a", 1}, {"b", 2}}));
}

TEST_F(PropertyFiles, TwoProcessesThatMergeLoseNoKey) {
    constexpr int merges = 1000;
    std::vector<pid_t> children;
    for (const char* prefix : {"a", "b"}) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            bool merged = true;
            for (int i = 0; i < merges; ++i) {
                merged =
                    merged && orv::ChangePropertiesInFile(path, {{prefix + std::to_string(i), i}});
            }
            _exit(merged ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    const auto list = orv::LoadPropertiesFromFile(path);
    ASSERT_TRUE(list && list->asDictionary() != nullptr);
    EXPECT_EQ(list->asDictionary()->size(), 2U * merges);
    EXPECT_TRUE(damagedCopies().empty());
}

}  // namespace

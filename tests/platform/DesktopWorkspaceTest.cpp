#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/TrashInfo.h"
#include "platform/linux/UniformTypes.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using platform::DesktopWorkspace;
using test_support::ContentOf;
using test_support::ScopedEnvironment;
using test_support::TemporaryFolder;

unsigned modeOf(const std::string& path) {
    struct stat info = {};
    EXPECT_EQ(::stat(path.c_str(), &info), 0) << path;
    return info.st_mode & 0777U;
}

class TheTrash : public testing::Test {
 protected:
    TemporaryFolder folder_;
    ScopedEnvironment home_{"HOME", folder_ / "home"};
    ScopedEnvironment data_{"XDG_DATA_HOME", std::nullopt};
    DesktopWorkspace workspace_;
};

TEST_F(TheTrash, IsMadeForTheUserAloneBelowTheDataFolder) {
    const auto files = workspace_.trashFolder();
    ASSERT_EQ(files, folder_ / "home/.local/share/Trash/files");
    for (const char* made : {"files", "info", "."}) {
        EXPECT_EQ(modeOf(folder_ / ("home/.local/share/Trash/" + std::string(made))), 0700U);
    }
    EXPECT_EQ(workspace_.trashFolder(), files) << "it is there already";

    const ScopedEnvironment data("XDG_DATA_HOME", folder_ / "data");
    EXPECT_EQ(workspace_.trashFolder(), folder_ / "data/Trash/files");
    const ScopedEnvironment relative("XDG_DATA_HOME", "data");
    EXPECT_EQ(workspace_.trashFolder(), files) << "a relative path does not count";
}

TEST_F(TheTrash, IsNoneWhereItCannotBe) {
    folder_.makeFile("file");
    for (const auto& data : {folder_ / "file", std::string("/proc/absent")}) {
        const ScopedEnvironment set("XDG_DATA_HOME", data);
        EXPECT_EQ(workspace_.trashFolder(), std::nullopt) << data;
    }
    const ScopedEnvironment home("HOME", std::nullopt);
    EXPECT_EQ(workspace_.trashFolder(), std::nullopt);
}

TEST_F(TheTrash, NotesWhereAFileCameFromAndKeepsANoteThatIsThere) {
    const std::string files = workspace_.trashFolder().value();
    const std::string note = folder_ / "home/.local/share/Trash/info/a b.trashinfo";
    workspace_.recordTrashed("/home/me/\xC3\xA4 100%\n.txt", files + "/a b");
    EXPECT_THAT(ContentOf(note),
                testing::MatchesRegex("\\[Trash Info\\]\n"
                                      "Path=/home/me/%C3%A4%20100%25%0A\\.txt\n"
                                      "DeletionDate=[0-9]+-[0-9][0-9]-[0-9][0-9]T[0-9:]+\n"));
    EXPECT_EQ(modeOf(note), 0600U);
    const std::string before = ContentOf(note);
    workspace_.recordTrashed("/another", files + "/a b");
    EXPECT_EQ(ContentOf(note), before);
}

TEST_F(TheTrash, NotesNothingForWhatLiesElsewhere) {
    const std::string files = workspace_.trashFolder().value();
    for (const auto& elsewhere :
         {folder_ / "home/file", files, files + "/", files + "/deep/file"}) {
        workspace_.recordTrashed("/home/me/file", elsewhere);
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder_ / "home/.local/share/Trash/info"));
}

TEST(TrashInfo, HasTheLocalDateAndTheWholePath) {
    std::tm date = {};
    date.tm_year = 2024 - 1900;
    date.tm_mon = 1;
    date.tm_mday = 9;
    date.tm_hour = 7;
    date.tm_min = 5;
    date.tm_sec = 3;
    EXPECT_EQ(platform::TrashInfoText("/a-._~/Z9 [Trash Info]", date),
              "[Trash Info]\nPath=/a-._~/Z9%20%5BTrash%20Info%5D\n"
              "DeletionDate=2024-02-09T07:05:03\n");
}

template <typename Number>
std::string littleEndian(Number number, std::size_t bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes; ++i) {
        text += static_cast<char>(static_cast<std::uint64_t>(number) >> (8 * i));
    }
    return text;
}

/// The parts of a package as an archive holds them, stored and without its directory.
std::string archiveOf(const std::vector<std::string>& names) {
    std::string archive;
    for (const auto& name : names) {
        const std::string content = "<xml/>" + std::string(64, ' ');
        archive += "PK\x03\x04" + littleEndian(20, 2) + std::string(12, '\0') +
                   littleEndian(content.size(), 4) + littleEndian(content.size(), 4) +
                   littleEndian(name.size(), 2) + littleEndian(0, 2) + name + content;
    }
    return archive;
}

std::string packageOf(const std::string& mainPart) {
    return archiveOf({"[Content_Types].xml", "_rels/.rels", "docProps/app.xml", mainPart});
}

std::string compoundEntry(const std::string& name, char type, std::uint32_t child) {
    std::string wide;
    for (const char c : name + '\0')
        wide += std::string{c, '\0'};
    const std::size_t length = wide.size();
    wide.resize(64);
    return wide + littleEndian(length, 2) + type + '\1' + std::string(8, '\xFF') +
           littleEndian(child, 4) + std::string(36, '\0') + littleEndian(0xFFFFFFFEU, 4) +
           std::string(8, '\0');
}

/// A compound document of one empty stream: header, allocation table, directory.
std::string compoundOf(const std::string& stream) {
    std::string header = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(16, '\0') +
                         littleEndian(0x3E, 2) + littleEndian(3, 2) + littleEndian(0xFFFE, 2) +
                         littleEndian(9, 2) + littleEndian(6, 2) + std::string(10, '\0') +
                         littleEndian(1, 4) + littleEndian(1, 4) + littleEndian(0, 4) +
                         littleEndian(4096, 4) + littleEndian(0xFFFFFFFEU, 4) + littleEndian(0, 4) +
                         littleEndian(0xFFFFFFFEU, 4) + littleEndian(0, 8);
    header.resize(512, '\xFF');
    std::string table = littleEndian(0xFFFFFFFDU, 4) + littleEndian(0xFFFFFFFEU, 4);
    table.resize(512, '\xFF');
    std::string directory =
        compoundEntry("Root Entry", 5, 1) + compoundEntry(stream, 2, 0xFFFFFFFFU);
    directory.resize(512, '\0');
    return header + table + directory;
}

TEST(ContentType, TellsOfficeDocumentsByTheirContent) {
    const TemporaryFolder folder;
    DesktopWorkspace workspace;
    const std::vector<std::pair<std::string, std::string>> cases = {
        {packageOf("word/document.xml"), "com.microsoft.word.doc"},
        {packageOf("ppt/presentation.xml"), "com.microsoft.powerpoint.ppt"},
        {packageOf("xl/workbook.xml"), "com.microsoft.excel.xls"},
        {compoundOf("WordDocument"), "com.microsoft.word.doc"},
        {compoundOf("Workbook"), "com.microsoft.excel.xls"},
        {"%PDF-1.4\n", "application/pdf"},
        {"plain words\n", "text/plain"},
        {"", "application/x-empty"},
    };
    for (const auto& [content, type] : cases) {
        EXPECT_EQ(workspace.contentType(folder.makeFile("document", content)), type);
    }
}

TEST(ContentType, IsAskedOfRegularFilesOnly) {
    const TemporaryFolder folder;
    DesktopWorkspace workspace;
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    folder.makeLink("dangling", "absent");
    folder.makeLink("link", folder.makeFile("file", "words\n"));
    for (const auto& path : {folder / "fifo", folder / "dangling", folder / "absent", folder.path(),
                             std::string("/dev/zero"), std::string()}) {
        EXPECT_EQ(workspace.contentType(path), std::nullopt) << path;
    }
    EXPECT_EQ(workspace.contentType(folder / "link"), "text/plain");
}

TEST(ContentType, IsNoneWithoutADatabaseWhichIsSaidOnce) {
    const TemporaryFolder folder;
    const ScopedEnvironment magic("MAGIC", folder / "absent");
    std::vector<std::string> lines;
    DesktopWorkspace workspace([&](const std::string& line) { lines.push_back(line); });
    const auto file = folder.makeFile("file", "words\n");
    EXPECT_TRUE(lines.empty()) << "not before the first question";
    EXPECT_EQ(workspace.contentType(file), std::nullopt);
    EXPECT_EQ(workspace.contentType(file), std::nullopt);
    EXPECT_EQ(lines.size(), 1U);
}

TEST(ContentType, IsAnsweredOnSeveralThreadsAtOnce) {
    const TemporaryFolder folder;
    const auto file = folder.makeFile("file", compoundOf("WordDocument"));
    DesktopWorkspace workspace;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < 20; ++n) {
                EXPECT_EQ(workspace.contentType(file), "com.microsoft.word.doc");
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
}

TEST(UniformTypes, CoverTheVariantsOfEachKindAndLeaveTheRest) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"application/vnd.openxmlformats-officedocument.wordprocessingml.template",
         "com.microsoft.word.doc"},
        {"application/vnd.ms-word.document.macroEnabled.12", "com.microsoft.word.doc"},
        {"application/vnd.ms-powerpoint", "com.microsoft.powerpoint.ppt"},
        {"application/vnd.ms-excel.sheet.binary.macroEnabled.12", "com.microsoft.excel.xls"},
        {"application/vnd.ms-office", "application/vnd.ms-office"},
        {"application/vnd.oasis.opendocument.text", "application/vnd.oasis.opendocument.text"},
    };
    for (const auto& [mimeType, type] : cases)
        EXPECT_EQ(platform::UniformType(mimeType), type);
}

}  // namespace

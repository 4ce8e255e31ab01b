#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>

#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/UniformTypes.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using test_support::ScopedEnvironment;

class TheWorkspace : public testing::Test {
 protected:
    static fs::perms modeOf(const std::string& path) { return fs::status(path).permissions(); }

    test_support::TemporaryFolder folder_;
    ScopedEnvironment home_{"HOME", folder_ / "home"};
    ScopedEnvironment data_{"XDG_DATA_HOME", std::nullopt};
    std::string trash_ = folder_ / "home/.local/share/Trash";
    int reports_ = 0;
    platform::DesktopWorkspace workspace_{[&](const auto&) { ++reports_; }};
};

TEST_F(TheWorkspace, MakesTheTrashForTheUserAloneBelowTheDataFolder) {
    EXPECT_EQ(workspace_.trashFolder(), trash_ + "/files");
    for (const char* made : {"/files", "/info", ""})
        EXPECT_EQ(modeOf(trash_ + made), fs::perms::owner_all) << made;
    const ScopedEnvironment data("XDG_DATA_HOME", folder_ / "data");
    EXPECT_EQ(workspace_.trashFolder(), folder_ / "data/Trash/files");
    const ScopedEnvironment relative("XDG_DATA_HOME", "data");
    EXPECT_EQ(workspace_.trashFolder(), trash_ + "/files") << "a relative path does not count";
    const ScopedEnvironment blocked("XDG_DATA_HOME", folder_.makeFile("file"));
    EXPECT_EQ(workspace_.trashFolder(), std::nullopt);
}

TEST_F(TheWorkspace, NotesWhereATrashedFileCameFromAndKeepsANoteThatIsThere) {
    for (const char* elsewhere : {"", "/files", "/files/", "/info/file"})
        workspace_.recordTrashed("/home/me/file", trash_ + elsewhere);
    EXPECT_TRUE(fs::is_empty(trash_ + "/info")) << "not the trash's own files";
    for (const char* original : {"/home/me/\xC3\xA4 [100%]\n-._~", "/another"})
        workspace_.recordTrashed(original, trash_ + "/files/a b");
    const std::string note = trash_ + "/info/a b.trashinfo";
    EXPECT_THAT(test_support::ContentOf(note),
                testing::MatchesRegex("\\[Trash Info\\]\n"
                                      "Path=/home/me/%C3%A4%20%5B100%25%5D%0A-\\._~\n"
                                      "DeletionDate=20[0-9][0-9]-[01][0-9]-[0-3][0-9]"
                                      "T[0-2][0-9]:[0-5][0-9]:[0-6][0-9]\n"));
    EXPECT_EQ(modeOf(note), (fs::perms::owner_read | fs::perms::owner_write));
}

/// The parts of a package as an archive holds them, empty and without its directory.
std::string packageOf(const std::string& mainPart) {
    std::string archive;
    for (const std::string name : {"[Content_Types].xml", "_rels/.rels", mainPart.c_str()}) {
        archive += "PK\x03\x04\x14" + std::string(21, '\0') + static_cast<char>(name.size()) +
                   std::string(3, '\0') + name;
    }
    return archive;
}

TEST_F(TheWorkspace, TellsDocumentsByTheirContentOnSeveralThreadsAtOnce) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {packageOf("word/document.xml"), "com.microsoft.word.doc"},
        {packageOf("ppt/presentation.xml"), "com.microsoft.powerpoint.ppt"},
        {packageOf("xl/workbook.xml"), "com.microsoft.excel.xls"},
        {std::string("\xDB\xA5-\0\0\0", 6), "com.microsoft.word.doc"},
        {"%PDF-1.4\n", "application/pdf"},
    };
    std::vector<std::thread> threads;
    for (const auto& [content, type] : cases) {
        const auto file = folder_.makeFile("file" + std::to_string(threads.size()), content);
        threads.emplace_back([this, file, &type = type] {
            for (int i = 0; i < 20; ++i)
                EXPECT_EQ(workspace_.contentType(file), type) << file;
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(platform::UniformType("application/vnd.ms-powerpoint"), cases[1].second);
    EXPECT_EQ(platform::UniformType("application/vnd.ms-excel.addin"), cases[2].second);
}

TEST_F(TheWorkspace, TellsNoTypeOfWhatIsNoRegularFileOrWithoutADatabase) {
    ASSERT_EQ(::mkfifo((folder_ / "fifo").c_str(), 0600), 0);
    for (const auto& path : {folder_ / "fifo", folder_.makeLink("dangling", "absent"),
                             folder_.path(), std::string("/dev/zero"), std::string()}) {
        EXPECT_EQ(workspace_.contentType(path), std::nullopt) << path;
    }
    const ScopedEnvironment magic("MAGIC", folder_ / "absent");
    const auto link = folder_.makeLink("link", folder_.makeFile("file", "words\n"));
    EXPECT_EQ(workspace_.contentType(link), std::nullopt);
    EXPECT_EQ(workspace_.contentType(link), std::nullopt);
    EXPECT_EQ(reports_, 1) << "said once";
}

}  // namespace

#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <regex>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "foundation/files/AccessListCopy.h"
#include "foundation/files/FileAccess.h"
#include "foundation/files/FileType.h"
#include "foundation/files/Filenames.h"
#include "foundation/files/Folders.h"
#include "foundation/files/Metainfo.h"
#include "foundation/files/OpenFiles.h"
#include "foundation/files/Trash.h"
#include "platform/Services.h"
#include "support/FakeAccessLists.h"
#include "support/FakeWorkspace.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using namespace quelm::os;

class FileOperations : public testing::Test {
 protected:
    ~FileOperations() override { platform::ProcessServices() = {}; }

    static mode_t modeOf(const std::string& path) {
        struct stat info = {};
        return stat(path.c_str(), &info) == 0 ? info.st_mode & 07777U : 0;
    }

    test_support::FakeWorkspace& useWorkspace() {
        auto workspace = std::make_unique<test_support::FakeWorkspace>();
        auto& used = *workspace;
        platform::ProcessServices().workspace = std::move(workspace);
        return used;
    }

    test_support::FakeAccessLists& useAccessLists() {
        auto lists = std::make_unique<test_support::FakeAccessLists>();
        auto& used = *lists;
        platform::ProcessServices().accessLists = std::move(lists);
        return used;
    }

    test_support::TemporaryFolder folder;
};

TEST_F(FileOperations, FoldersAreMadeWithTheirParentsButNeverUnderTheRoot) {
    EXPECT_EQ(RecursiveCreateFolder(folder / "a/b/c"), EStatusCode::SUCCESS);
    EXPECT_TRUE(fs::is_directory(folder / "a/b/c"));
    EXPECT_EQ(RecursiveCreateFolder(folder / "a/b/c"), EStatusCode::SUCCESS);
    EXPECT_EQ(RecursiveCreateFolder(folder / "a/d/"), EStatusCode::SUCCESS);
    EXPECT_EQ(RecursiveCreateFolder("/tidewell-newfolder"), EStatusCode::INVALID_PATH);
    EXPECT_EQ(RecursiveCreateFolder("/tidewell-newfolder/x"), EStatusCode::INVALID_PATH);
    EXPECT_EQ(RecursiveCreateFolder("relative"), EStatusCode::INVALID_PATH);
    folder.makeFile("file");
    EXPECT_EQ(RecursiveCreateFolder(folder / "file/x"), EStatusCode::FILE_EXISTS_ERROR);
    EXPECT_EQ(CreateRootFolder(folder / "root"), EStatusCode::SUCCESS);
    EXPECT_EQ(modeOf(folder / "root"), 0700U);
    EXPECT_EQ(CreateFolder(folder / "no/parent"), EStatusCode::FILE_NOT_FOUND);
}

TEST_F(FileOperations, ANewFolderTakesItsParentsListWithoutDeniesForEveryone) {
    using Entry = platform::AccessEntry;
    auto& lists = useAccessLists();
    const Entry allow{Entry::Kind::Allow, Entry::Qualifier::User, 7, "amy",
                      platform::ReadDataOrListDirectory | platform::Delete};
    const Entry denyEveryone{Entry::Kind::Deny, Entry::Qualifier::Group, 12, "everyone",
                             platform::Delete};
    const Entry denyStaff{Entry::Kind::Deny, Entry::Qualifier::Group, 20, "staff",
                          platform::DeleteChild};
    lists.lists[folder.path()] = {allow, denyEveryone, denyStaff};

    ASSERT_EQ(CreateFolder(folder / "new"), EStatusCode::SUCCESS);
    EXPECT_EQ(lists.lists[folder / "new"], (platform::AccessList{allow, denyStaff}));
    // it has a list now, so nothing is added
    ASSERT_EQ(CopyFolderAcl(folder / "new"), EStatusCode::SUCCESS);
    EXPECT_EQ(lists.written.size(), 1U);

    ASSERT_EQ(CopyFileAcl(folder.makeFile("file")), EStatusCode::SUCCESS);
    ASSERT_EQ(lists.lists[folder / "file"].size(), 3U);
    EXPECT_EQ(lists.lists[folder / "file"][0].rights, platform::Delete);
    EXPECT_EQ(lists.lists[folder / "file"][2].rights, 0U);

    lists.readErrors[folder / "gone"] = ENOENT;
    EXPECT_EQ(CopyFileAcl(folder / "gone"), EStatusCode::FILE_NOT_FOUND);
}

TEST_F(FileOperations, EntriesAreListedByPattern) {
    for (const char* name : {"report.txt", "a\nb", ".hidden", "Report.TXT"})
        folder.makeFile(name);
    const auto list = [&](const std::string& pattern) {
        std::set<std::string> names;
        EXPECT_EQ(ListFolderEntries(names, folder.path(), pattern), EStatusCode::SUCCESS);
        return names;
    };
    EXPECT_EQ(list(""), (std::set<std::string>{".hidden", "Report.TXT", "a\nb", "report.txt"}));
    EXPECT_EQ(list("port\\.t"), (std::set<std::string>{"report.txt"}));

    std::set<std::string> names;
    EXPECT_EQ(ListFolderEntries(names, folder.path(), "("), EStatusCode::FAILURE);
    EXPECT_EQ(ListFolderEntries(names, folder / "absent"), EStatusCode::FILE_NOT_FOUND);
}

TEST_F(FileOperations, APatternThatExplodesComesToAnEnd) {
    folder.makeFile(std::string(250, 'a'));
    std::set<std::string> names;
    EXPECT_EQ(ListFolderEntries(names, folder.path(), "^(a+)+$b"), EStatusCode::SUCCESS);
    EXPECT_TRUE(names.empty());
}

TEST_F(FileOperations, ModesAndTimesAreSet) {
    const std::string file = folder.makeFile("file");
    ASSERT_EQ(SetReadonly(file, true), EStatusCode::SUCCESS);
    EXPECT_EQ(modeOf(file) & 0222U, 0U);
    ASSERT_EQ(SetReadonly(file, false), EStatusCode::SUCCESS);
    EXPECT_EQ(modeOf(file) & 0600U, 0600U);
    ASSERT_EQ(SetFileTime(file, 1'000'000'000), EStatusCode::SUCCESS);
    struct stat info = {};
    ASSERT_EQ(stat(file.c_str(), &info), 0);
    EXPECT_EQ(info.st_mtim.tv_sec, 1'000'000'000);
    EXPECT_EQ(info.st_atim.tv_sec, 1'000'000'000);
    std::uint64_t bytes = 0;
    EXPECT_EQ(AvailableDiskSpace(file, bytes), EStatusCode::SUCCESS);
    EXPECT_GT(bytes, 0U);
    EXPECT_EQ(AvailableDiskSpace(folder / "absent", bytes), EStatusCode::FILE_NOT_FOUND);
}

TEST_F(FileOperations, RenamingNeverReplacesAnything) {
    const std::string from = folder.makeFile("from", "new");
    folder.makeFile("taken", "old");
    folder.makeLink("dangling", "nowhere");
    EXPECT_EQ(RenameNoOverride(from, folder / "taken"), EStatusCode::FILE_EXISTS_ERROR);
    EXPECT_EQ(RenameNoOverride(from, folder / "dangling"), EStatusCode::FILE_EXISTS_ERROR);
    EXPECT_EQ(RenameNoOverride(from, folder / "no/where"), EStatusCode::FILE_NOT_FOUND);
    EXPECT_EQ(RenameNoOverride(from, folder / "free"), EStatusCode::SUCCESS);
    EXPECT_EQ(test_support::ContentOf(folder / "taken"), "old");
    EXPECT_EQ(test_support::ContentOf(folder / "free"), "new");
}

TEST_F(FileOperations, MetainfoIsCopiedOrRemoved) {
    const std::string from = folder.makeFile("from");
    const std::string to = folder.makeFile("to");
    std::string metainfo = "old";
    EXPECT_EQ(LoadMetainfo(from, metainfo), EStatusCode::RESOURCE_UNAVAILABLE);
    EXPECT_EQ(metainfo, "");
    constexpr std::string_view stored = "TEXTttxt0123456789abcdefghijkl";
    if (setxattr(from.c_str(), "user.com.apple.FinderInfo", stored.data(), stored.size(), 0) != 0) {
        GTEST_SKIP() << "this file system has no extended attributes";
    }
    EXPECT_EQ(CopyMetainfo(from, to), EStatusCode::SUCCESS);
    EXPECT_EQ(LoadMetainfo(to, metainfo), EStatusCode::SUCCESS);
    EXPECT_EQ(metainfo, "TEXTttxt01234567");
    EXPECT_EQ(CopyMetainfo(folder.makeFile("plain"), to), EStatusCode::SUCCESS);
    EXPECT_EQ(LoadMetainfo(to, metainfo), EStatusCode::RESOURCE_UNAVAILABLE);
    EXPECT_EQ(CopyMetainfo(folder / "absent", to), EStatusCode::FILE_NOT_FOUND);
}

TEST_F(FileOperations, TheFileTypeComesFromTheNameAndThenFromTheContent) {
    auto& workspace = useWorkspace();
    workspace.types = {{"/x/letter", "com.microsoft.word.doc"},
                       {"/x/slides", "com.microsoft.powerpoint.ppt"},
                       {"/x/table", "com.microsoft.excel.xls"},
                       {"/x/other", "application/pdf"}};
    EXPECT_EQ(DetectFileType("/x.y/a.tar.gz"), "gz");
    EXPECT_EQ(DetectFileType("/x/letter"), "doc");
    EXPECT_EQ(DetectFileType("/x/slides"), "ppt");
    EXPECT_EQ(DetectFileType("/x/table"), "xls");
    EXPECT_EQ(DetectFileType("/x/other"), "");
    platform::ProcessServices() = {};
    EXPECT_EQ(DetectFileType("/x/letter"), "");
}

TEST_F(FileOperations, AnExtensionFollowsTheLastDotWithoutWhiteSpace) {
    const std::vector<std::pair<std::string_view, std::string_view>> cases = {
        {"a.b", "b"},    {"report.final.txt", "txt"},
        {".bashrc", ""}, {"end.", ""},
        {"a. b", ""},    {"a.b c", ""},
        {".a", ""},      {"", ""}};
    for (const auto& [name, extension] : cases) {
        EXPECT_EQ(quelm::GetFilenameExtension(name), extension) << name;
    }
}

TEST_F(FileOperations, TrashedFilesGetTheTimeWhereTheirNameIsTaken) {
    auto& workspace = useWorkspace();
    workspace.trash = folder.makeFolder("trash");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(MoveToTrash(folder.makeFile("report.txt")), EStatusCode::SUCCESS);
    }
    EXPECT_FALSE(fs::exists(folder / "report.txt"));
    ASSERT_EQ(workspace.trashed.size(), 3U);
    EXPECT_EQ(workspace.trashed[0].second, folder / "trash/report.txt");
    const std::regex timed(R"(.*/report \d{1,2}\.\d\d\.\d\d [AP]M( 2)?\.txt)");
    EXPECT_TRUE(std::regex_match(workspace.trashed[1].second, timed));
    EXPECT_TRUE(std::regex_match(workspace.trashed[2].second, timed));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "trash"), {}), 3);

    EXPECT_EQ(MoveToTrash(folder / "absent"), EStatusCode::FILE_NOT_FOUND);
    workspace.trash.reset();
    const std::string kept = folder.makeFile("kept");
    EXPECT_EQ(MoveToTrash(kept), EStatusCode::RESOURCE_UNAVAILABLE);
    EXPECT_TRUE(fs::exists(kept));
}

TEST_F(FileOperations, GeneratedNamesAreNewFiles) {
    std::set<std::string> names;
    for (int i = 0; i < 200; ++i) {
        const std::string name = GenerateFilename(folder.path(), 8, ".tmp");
        ASSERT_EQ(name.size(), 12U);
        EXPECT_EQ(name.find('l'), std::string::npos);
        EXPECT_EQ(modeOf(folder / name), 0600U);
        names.insert(name);
    }
    EXPECT_EQ(names.size(), 200U);
    EXPECT_EQ(GenerateFilename(folder / "absent", 8, ""), "");
    // one character and one suffix give 35 names, of which one is free
    const std::string alphabet = "0123456789abcdefghijkmnopqrstuvwxyz";
    for (const char c : alphabet.substr(1))
        folder.makeFile(std::string("one/") + c);
    for (const std::string& name = GenerateFilename(folder / "one", 1, ""); !name.empty();) {
        EXPECT_EQ(name, "0");
        break;
    }
    const std::string temporary = quelm::CreateTempFilename();
    EXPECT_TRUE(std::regex_match(temporary, std::regex("/var/tmp/[0-9a-z]{12}"))) << temporary;
    EXPECT_FALSE(fs::exists(temporary));
}

TEST_F(FileOperations, NamesAreMadeValid) {
    EXPECT_EQ(ValidFilename(".hidden/name"), "_hidden_name");
    EXPECT_EQ(ValidFilename(std::string("a\0b", 3)), "a_b");
    EXPECT_EQ(ValidFilename(""), "");
    EXPECT_EQ(FilenameConvert("caf\u00e9"), "cafe\u0301");
    EXPECT_EQ(FilenameConvert("not\xff"
                              "utf8"),
              "not\xff"
              "utf8");
}

TEST_F(FileOperations, OpenFilesAreListedBelowTheirFolder) {
    if (std::system("command -v lsof >/dev/null") != 0) GTEST_SKIP() << "lsof is not installed";
    const std::string file = folder.makeFile("in/open file");
    folder.makeFile("in/closed");
    const std::string quoted = folder.makeFile("quo'te/open");
    std::FILE* open = std::fopen(file.c_str(), "r");
    std::FILE* quotedOpen = std::fopen(quoted.c_str(), "r");
    std::set<std::string> paths;
    ListOpenFiles(folder / "in", paths);
    EXPECT_EQ(paths, (std::set<std::string>{"open file"}));
    paths.clear();
    ListOpenFiles(folder / "quo'te", paths);
    ListOpenFiles(folder / "absent", paths);
    EXPECT_TRUE(paths.empty());
    std::fclose(open);
    std::fclose(quotedOpen);
}

}  // namespace

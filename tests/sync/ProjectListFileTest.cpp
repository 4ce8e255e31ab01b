#include <gtest/gtest.h>
#include <sys/stat.h>

#include "foundation/system/Log.h"
#include "support/TemporaryFolder.h"
#include "sync/folders/ProjectListFile.h"

namespace {

using namespace quelm::sync;

class ProjectListFile : public testing::Test {
 protected:
    ProjectListFile() {
        quelm::SetLogSink([this](std::string_view line) { log_.emplace_back(line); });
    }
    ~ProjectListFile() override { quelm::SetLogSink(nullptr); }

    /// The entries of a file with that content.
    CProjectListFile::Entries load(std::string_view content, const std::string& master = "") {
        folder_.makeFile("list", content);
        CProjectListFile file(folder_ / "list", master);
        EXPECT_TRUE(file.Load());
        return file.entries();
    }
    /// What a file holds after its content was read and stored.
    std::string storedAgain(std::string_view content, const std::string& master = "") {
        folder_.makeFile("list", content);
        CProjectListFile file(folder_ / "list", master);
        EXPECT_TRUE(file.Load());
        file.Store();
        return test_support::ContentOf(folder_ / "list");
    }

    test_support::TemporaryFolder folder_;
    std::vector<std::string> log_;
};

constexpr auto R = FS_TYPE_REGULAR;
constexpr auto V = FS_TYPE_VIRTUAL;
constexpr auto M = MASTER_PROJECT_FOLDER;
constexpr auto E = EXTERNAL_PROJECT_FOLDER;
using Entries = CProjectListFile::Entries;

TEST_F(ProjectListFile, HoldsOneEntryALine) {
    const std::string master = "RM:default:/Users/a/Projects\nRM:12345:/Users/a/Projects/Plans\n";
    EXPECT_EQ(load(master), (Entries{{R, M, "", "/Users/a/Projects", true},
                                     {R, M, "12345", "/Users/a/Projects/Plans", false}}));
    EXPECT_EQ(storedAgain(master), master);
    EXPECT_EQ(load("VE:7:/Volumes/a:b"), (Entries{{V, E, "7", "/Volumes/a:b", false}}));
    EXPECT_EQ(load("RM::/p\r\n"), (Entries{{R, M, "", "/p\r", false}}));
    EXPECT_EQ(storedAgain("RM::/p"), "RM::/p\n") << "an empty id is the default only when marked";
}

TEST_F(ProjectListFile, SkipsLinesThatHoldNoEntryAndReadsUnknownLettersLeniently) {
    EXPECT_EQ(load("RM:x\nRM:\nR\n\nXX:1:/x\nVX:2:\nRM:4\n"),
              (Entries{{R, E, "1", "/x", false}, {V, E, "2", "", false}}));
    CProjectListFile file(folder_ / "new", "");
    file.AddProjectFolder(R, M, "/m", true);
    file.AddProjectFolder(FS_TYPE_NULL, M, "/n", false);
    file.Store();
    EXPECT_EQ(test_support::ContentOf(folder_ / "new"), "RM:default:/m\nXM::/n\n");
    EXPECT_TRUE(file.Load());
    EXPECT_EQ(file.entries(), (Entries{{R, M, "", "/m", true}, {R, M, "", "/n", false}}));
}

TEST_F(ProjectListFile, OfTheOldFormatIsConvertedWhenItIsStored) {
    folder_.makeFolder("external/.FileCache");
    const std::string external = folder_ / "external";
    const std::string old = "12:/m/a\nRM:13:/b\n14:" + external + "\n15:/m/c\nno colon\n";
    EXPECT_EQ(load(old, "/m"), (Entries{{R, M, "", "/m", true},
                                        {R, M, "12", "/m/a", false},
                                        {R, M, "RM", "13:/b", false},
                                        {R, E, "14", external, false},
                                        {R, M, "15", "/m/c", false}}));
    EXPECT_EQ(load("12:/m/a", ""), (Entries{{R, M, "12", "/m/a", false}}));
    EXPECT_EQ(storedAgain("12:/m/a", "/m"), "RM:default:/m\nRM:12:/m/a\n");
}

TEST_F(ProjectListFile, IsReadOnceUntilItIsDiscarded) {
    folder_.makeFile("list", "RM:1:/a\n");
    CProjectListFile file(folder_ / "list", "");
    EXPECT_TRUE(file.Exists());
    EXPECT_TRUE(file.Load());
    folder_.makeFile("list", "RM:2:/b\n");
    EXPECT_TRUE(file.Load());
    EXPECT_EQ(file.entries().at(0).projectId, "1");
    EXPECT_EQ(file.FindByProjectId("1"), file.entries().begin());
    EXPECT_EQ(file.FindByProjectId("2"), file.entries().end());
    file.AddProjectFolder(R, E, "/a", true);
    EXPECT_EQ(file.entries().size(), 1U) << "the path is there";
    EXPECT_TRUE(file.Discard());
    EXPECT_FALSE(file.loaded());
    EXPECT_FALSE(file.Load());
    EXPECT_EQ(file.entries(), Entries{});
    folder_.makeFolder("list");
    EXPECT_FALSE(file.Exists());
    EXPECT_FALSE(file.Load());
}

TEST_F(ProjectListFile, TakesAnyBytesAndLinesOfAnyLength) {
    const std::string path(1 << 20U, '/');
    EXPECT_EQ(load("RM:1:" + path + "\nRM:\xff:/\xfe\n"),
              (Entries{{R, M, "1", path, false}, {R, M, "\xff", "/\xfe", false}}));
    EXPECT_EQ(load(""), Entries{});
    ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(CProjectListFile(folder_ / "pipe", "").Load()) << "and does not hang";
}

TEST_F(ProjectListFile, NeverWritesAnEntryThatReadsAsOthers) {
    CProjectListFile file("7", folder_.path(), "");
    EXPECT_EQ(file.path(), folder_ / "project_list_7");
    file.AddProjectFolder(R, M, "/a\nRM:1:/etc", false);
    file.AddProjectFolder(R, M, "/b", false);
    file.Store();
    EXPECT_EQ(test_support::ContentOf(file.path()), "RM::/b\n");
    EXPECT_EQ(log_.size(), 1U);
    // a link in its place leads to nobody else's file
    const std::string other = folder_.makeFile("other", "content");
    folder_.makeLink("project_list_8", other);
    CProjectListFile("8", folder_.path(), "").Store();
    EXPECT_EQ(test_support::ContentOf(other), "content");
}

}  // namespace

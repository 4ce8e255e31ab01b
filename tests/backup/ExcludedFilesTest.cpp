#include <gtest/gtest.h>

#include "backup/sharing/ExcludedFiles.h"
#include "config/PropertyFiles.h"
#include "support/TemporaryFolder.h"

namespace {

using Paths = std::vector<std::string>;
using quelm::Array;

class TheExcludedFiles : public testing::Test {
 protected:
    const test_support::TemporaryFolder folder_;
    const std::string file_ = folder_ / "excluded_files.plist";
    orv::ExcludedFiles files_{folder_.path()};
};

TEST_F(TheExcludedFiles, StandInOrderEachOnceWithoutRegardToCase) {
    EXPECT_TRUE(files_.loadExcludedFiles()) << "a missing file";
    for (const char* path :
         {"/home/a/Beta", "/home/a/alpha", "/home/a/\u00c4rger", "/home/a/Gamma"})
        EXPECT_TRUE(files_.add(path)) << path;
    for (const std::string path :
         {"/home/a/BETA", "/home/a/\u00e4rger", "relative", "", "/\xff", "/line\nend\x01"})
        EXPECT_FALSE(files_.add(path)) << path;
    EXPECT_FALSE(files_.add("/" + std::string(5'000, 'x')));
    const Paths sorted{"/home/a/alpha", "/home/a/Beta", "/home/a/Gamma", "/home/a/\u00c4rger"};
    EXPECT_EQ(files_.paths(), sorted);
    EXPECT_TRUE(files_.saveExcludedFiles());
    EXPECT_EQ(orv::LoadArrayFromFile(file_), quelm::Value(Array(sorted.begin(), sorted.end())));
    EXPECT_FALSE(files_.remove("/home/a/beta")) << "only what is equal";
    EXPECT_FALSE(files_.isModified());
    EXPECT_TRUE(files_.remove("/home/a/Beta"));
    EXPECT_TRUE(files_.isModified());
}

TEST_F(TheExcludedFiles, AreWrittenOnlyWhenTheyChanged) {
    EXPECT_TRUE(files_.loadExcludedFiles());
    EXPECT_TRUE(files_.saveExcludedFiles());
    EXPECT_FALSE(std::filesystem::exists(file_));
    orv::StoreArrayToFile(file_, Array{"/b", 7, Array{"/x"}, "/B", "/a"});
    EXPECT_TRUE(files_.loadExcludedFiles());
    EXPECT_EQ(files_.paths(), (Paths{"/b", "/B", "/a"})) << "in the order of the file";
    EXPECT_TRUE(files_.add("/aa"));
    EXPECT_EQ(files_.paths(), (Paths{"/aa", "/b", "/B", "/a"}));
}

TEST_F(TheExcludedFiles, NeverReplaceAFileThatCannotBeRead) {
    for (const std::string content : {"<plist><array>", "<plist><dict/></plist>"}) {
        folder_.makeFile("excluded_files.plist", content);
        orv::ExcludedFiles files(folder_.path());
        EXPECT_FALSE(files.loadExcludedFiles());
        EXPECT_TRUE(files.add("/a"));
        EXPECT_FALSE(files.saveExcludedFiles());
        EXPECT_TRUE(files.isModified());
        EXPECT_EQ(test_support::ContentOf(file_), content);
    }
    std::filesystem::remove(file_);
    std::filesystem::create_directory(file_);
    EXPECT_FALSE(files_.loadExcludedFiles());
    orv::ExcludedFiles nowhere(folder_ / "absent");
    EXPECT_TRUE(nowhere.loadExcludedFiles());
    EXPECT_TRUE(nowhere.add("/a"));
    EXPECT_FALSE(nowhere.saveExcludedFiles()) << "there is no such folder";
}

}  // namespace

#include <cerrno>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/PosixAccessLists.h"
#include "support/PrivateMounts.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace platform;  // the rights
using test_support::TemporaryFolder;

using Kind = AccessEntry::Kind;
using Qualifier = AccessEntry::Qualifier;

constexpr std::uint32_t writeFile = WriteDataOrAddFile | AppendDataOrAddSubdirectory;
constexpr std::uint32_t someUser = 54'321;  // without a name
constexpr std::uint32_t someGroup = 54'322;

AccessEntry allow(Qualifier qualifier, std::uint32_t id, std::uint32_t rights) {
    return {Kind::Allow, qualifier, id, "", rights};
}

class PosixAccess : public testing::Test {
 protected:
    void SetUp() override {
        const auto probe = folder_.makeFile("probe");
        if (lists_.write(probe, {allow(Qualifier::User, someUser, ReadDataOrListDirectory)}) ==
            ENOTSUP) {
            GTEST_SKIP() << folder_.path() << ": the file system has no access lists";
        }
    }

    /// Sets entries as the command line tool does, which is not ours.
    static void setfacl(const std::string& arguments, const std::string& path) {
        const std::string command = "setfacl " + arguments + " '" + path + "'";
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }

    static unsigned modeOf(const std::string& path) {
        struct stat info = {};
        EXPECT_EQ(::stat(path.c_str(), &info), 0);
        return info.st_mode & 0777U;
    }

    TemporaryFolder folder_;
    PosixAccessLists lists_;
};

TEST_F(PosixAccess, ReadsNamedEntriesAsFarAsTheMaskLetsThem) {
    const auto file = folder_.makeFile("file");
    const auto folder = folder_.makeFolder("folder");
    EXPECT_EQ(lists_.read(file), AccessList{}) << "a mode alone is no list";
    for (const auto& path : {file, folder})
        setfacl("-m u:54321:rwx,g:54322:rx,m:rw", path);
    const auto expected = [](std::uint32_t write) {
        return AccessList{allow(Qualifier::User, someUser, ReadDataOrListDirectory | write),
                          allow(Qualifier::Group, someGroup, ReadDataOrListDirectory)};
    };
    EXPECT_EQ(lists_.read(file), expected(writeFile));
    EXPECT_EQ(lists_.read(folder), expected(writeFile | DeleteChild));
}

TEST_F(PosixAccess, NamesUsersAndGroupsThatTheSystemKnows) {
    const auto file = folder_.makeFile("file");
    setfacl("-m u:0:r,g:0:x", file);
    const auto list = lists_.read(file);
    ASSERT_TRUE(list && list->size() == 2);
    EXPECT_EQ((*list)[0].name, "root");
    EXPECT_EQ((*list)[1].name, "root");
    EXPECT_EQ((*list)[1].qualifier, Qualifier::Group);
    EXPECT_EQ((*list)[1].rights, ExecuteOrSearch);
}

TEST_F(PosixAccess, WritesWhatItCanExpressBesideWhatIsThere) {
    const auto folder = folder_.makeFolder("folder");
    setfacl("-m u:1:rwx,u:54321:rwx", folder);
    const AccessList wanted = {
        allow(Qualifier::User, someUser, ReadDataOrListDirectory | ExecuteOrSearch),
        allow(Qualifier::Group, someGroup, WriteDataOrAddFile),
        allow(Qualifier::Group, 7, Delete),
        allow(Qualifier::Group, 8, AppendDataOrAddSubdirectory | DeleteChild),
        {Kind::Deny, Qualifier::User, 9, "", ReadDataOrListDirectory},
    };
    ASSERT_EQ(lists_.write(folder, wanted), 0);
    const auto list = lists_.read(folder);
    ASSERT_TRUE(list);
    ASSERT_EQ(list->size(), 3U);
    EXPECT_EQ((*list)[0].id, 1U);
    EXPECT_EQ((*list)[0].rights,
              ReadDataOrListDirectory | writeFile | DeleteChild | ExecuteOrSearch);
    EXPECT_EQ((*list)[1], wanted[0]) << "replaced";
    EXPECT_EQ((*list)[2], allow(Qualifier::Group, someGroup, writeFile | DeleteChild));
}

TEST_F(PosixAccess, TouchesNothingWhenNothingRemains) {
    const auto file = folder_.makeFile("file");
    const AccessList nothing = {
        allow(Qualifier::User, someUser, 0),
        allow(Qualifier::User, someUser, Delete | DeleteChild),
        {Kind::Deny, Qualifier::Group, someGroup, "", ReadDataOrListDirectory},
    };
    EXPECT_EQ(lists_.write(file, nothing), 0);
    EXPECT_EQ(lists_.write(file, {}), 0);
    EXPECT_EQ(lists_.read(file), AccessList{});
    EXPECT_EQ(lists_.write(folder_ / "absent", nothing), 0) << "not even asked for";
}

TEST_F(PosixAccess, GivesNobodyMoreByTheNewMask) {
    const auto file = folder_.makeFile("file");
    setfacl("-m u:1:rwx,g::rw,m:r", file);
    const AccessList wanted = {
        allow(Qualifier::User, someUser, ReadDataOrListDirectory | WriteDataOrAddFile)};
    ASSERT_EQ(lists_.write(file, wanted), 0);
    EXPECT_EQ(modeOf(file) & 070U, 060U) << "the mask now lets writing through";
    const auto list = lists_.read(file);
    ASSERT_TRUE(list && list->size() == 2);
    EXPECT_EQ((*list)[0].rights, ReadDataOrListDirectory) << "had no more before";
    EXPECT_EQ((*list)[1].rights, ReadDataOrListDirectory | writeFile);
    ASSERT_EQ(std::system(("getfacl -cE '" + file + "' 2>&1 | grep -qx group::r--").c_str()), 0);
}

TEST_F(PosixAccess, AnswersTheSystemsError) {
    errno = 0;
    EXPECT_EQ(lists_.read(folder_ / "absent"), std::nullopt);
    EXPECT_EQ(errno, ENOENT);
    const AccessList wanted = {allow(Qualifier::User, someUser, ReadDataOrListDirectory)};
    EXPECT_EQ(lists_.write(folder_ / "absent", wanted), ENOENT);
}

TEST(PosixAccessWithoutSupport, CountsAsEmpty) {
    if (const auto why = test_support::WhyNoPrivateMounts(); !why.empty()) GTEST_SKIP() << why;
    const TemporaryFolder folder;
    test_support::WithPrivateMounts([&] {
        ASSERT_EQ(::mount("none", folder.path().c_str(), "ramfs", 0, nullptr), 0);
        PosixAccessLists lists;
        const auto file = folder.makeFile("file");
        EXPECT_EQ(lists.read(file), AccessList{});
        EXPECT_EQ(lists.write(file, {allow(Qualifier::User, 1, ReadDataOrListDirectory)}), ENOTSUP);
    });
}

}  // namespace

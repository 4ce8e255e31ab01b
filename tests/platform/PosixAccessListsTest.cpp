#include <cerrno>
#include <cstdlib>
#include <gtest/gtest.h>

#include "platform/linux/PosixAccessLists.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace platform;  // the rights
using Kind = AccessEntry::Kind;

constexpr std::uint32_t readFile = ReadDataOrListDirectory;
constexpr std::uint32_t writeFile = WriteDataOrAddFile | AppendDataOrAddSubdirectory;

AccessEntry user(std::uint32_t id, std::uint32_t rights, Kind kind = Kind::Allow) {
    return {kind, AccessEntry::Qualifier::User, id, "", rights};
}
AccessEntry group(std::uint32_t id, std::uint32_t rights, Kind kind = Kind::Allow) {
    return {kind, AccessEntry::Qualifier::Group, id, "", rights};
}

/// Users and groups from 54321 on have no name.
class PosixAccess : public testing::Test {
 protected:
    void SetUp() override {
        if (lists_.write(folder_.path(), {user(54321, readFile)}) != ENOTSUP) return;
        GTEST_SKIP() << folder_.path() << ": the file system has no access lists";
    }

    /// Asks the command line tools, which are not ours.
    static void run(const std::string& command) {
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }

    test_support::TemporaryFolder folder_;
    std::string file_ = folder_.makeFile("file");
    std::string inner_ = folder_.makeFolder("folder");
    PosixAccessLists lists_;
};

TEST_F(PosixAccess, ReadsNamedEntriesAsFarAsTheMaskLetsThem) {
    EXPECT_EQ(lists_.read(file_), AccessList{}) << "a mode alone is no list";
    run("setfacl -m u:0:r,u:54321:rwx,g:54322:rx,m:rw " + file_ + " " + inner_);
    AccessList expected = {user(0, readFile), user(54321, readFile | writeFile),
                           group(54322, readFile)};
    expected[0].name = "root";
    EXPECT_EQ(lists_.read(file_), expected);
    expected[1].rights |= DeleteChild;
    EXPECT_EQ(lists_.read(inner_), expected);
    errno = 0;
    EXPECT_EQ(lists_.read(folder_ / "absent"), std::nullopt);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(lists_.read("/proc/self/status"), AccessList{}) << "a file system without lists";
}

TEST_F(PosixAccess, WritesWhatItCanExpressBesideWhatIsThereOrTouchesNothing) {
    run("setfacl -m u:54320:rwx,u:54321:rwx " + inner_);
    const AccessList nothing = {group(7, Delete | DeleteChild), user(54321, 0),
                                group(8, AppendDataOrAddSubdirectory),
                                user(54321, readFile, Kind::Deny)};
    AccessList wanted = nothing;
    wanted.push_back(user(54321, readFile | ExecuteOrSearch));
    wanted.push_back(group(54322, WriteDataOrAddFile));
    ASSERT_EQ(lists_.write(inner_, wanted), 0);
    const AccessList expected = {user(54320, readFile | writeFile | DeleteChild | ExecuteOrSearch),
                                 user(54321, readFile | ExecuteOrSearch),  // replaced
                                 group(54322, writeFile | DeleteChild)};
    EXPECT_EQ(lists_.read(inner_), expected);
    EXPECT_EQ(lists_.write(folder_ / "absent", wanted), ENOENT);
    EXPECT_EQ(lists_.write("/proc/self/status", wanted), ENOTSUP);
    EXPECT_EQ(lists_.write(file_, nothing), 0);
    EXPECT_EQ(lists_.read(file_), AccessList{});
    EXPECT_EQ(lists_.write(folder_ / "absent", nothing), 0) << "not even asked for";
}

TEST_F(PosixAccess, GivesNobodyMoreByTheNewMask) {
    run("setfacl -m u:54320:rwx,g::rw,m:r " + file_);
    ASSERT_EQ(lists_.write(file_, {user(54321, readFile | WriteDataOrAddFile)}), 0);
    const AccessList expected = {user(54320, readFile), user(54321, readFile | writeFile)};
    EXPECT_EQ(lists_.read(file_), expected) << "the first had no more before";
    run("getfacl -cpE " + file_ + " | tr '\\n' ' ' | grep -q 'group::r-- mask::rw-'");
}

}  // namespace

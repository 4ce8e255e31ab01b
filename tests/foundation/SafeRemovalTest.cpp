#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "foundation/files/FileIo.h"
#include "foundation/files/SafeRemoval.h"
#include "foundation/system/Log.h"
#include "support/PrivateMounts.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using namespace quelm::os;

class SafeRemoval : public testing::Test {
 protected:
    SafeRemoval() {
        quelm::SetLogSink([](std::string_view) {});
    }
    ~SafeRemoval() override { quelm::SetLogSink({}); }

    test_support::TemporaryFolder folder;
    const std::string home = folder.makeFolder("home/user");
    test_support::ScopedEnvironment environment{"HOME", home};
    const RemovalRules rules{{folder.makeFolder("home/user/config"),
                              folder.makeFolder("home/user/config/account_42"),
                              home + "/accounts/not-made-yet"}};
};

TEST_F(SafeRemoval, ProtectedPlacesAreRefusedUntouched) {
    folder.makeFile("home/user/config/user_info.plist");
    folder.makeFile("home/user/data/file");
    folder.makeLink("home/user/link", "data");
    folder.makeLink("alias", "home");
    const std::vector<std::string> refused = {
        "/",
        "//",
        "",
        "relative",
        home + "/data/.",
        home + "/data/..",
        home,
        home + "/",
        folder.path() + "/alias/user",
        folder.path() + "/home",
        folder.path(),
        home + "/link",
        home + "/link/",
        home + "/data/file",
        home + "/config",
        home + "/config/sub",
        home + "/config/account_42",
        home + "/accounts",
        home + "/absent",
        "/proc",
        std::string("/tmp\0x", 6),
    };
    folder.makeFolder("home/user/config/sub");
    folder.makeFolder("home/user/accounts");
    for (const std::string& path : refused) {
        const RemovalReport report = RemoveFolderSafely(path, rules);
        EXPECT_NE(report.status, EStatusCode::SUCCESS) << path;
        EXPECT_EQ(report.removed, 0U) << path;
        ASSERT_EQ(report.refused.size(), 1U) << path;
        EXPECT_NE(report.refused[0].reason, "") << path;
    }
    EXPECT_TRUE(fs::exists(home + "/data/file"));
    EXPECT_TRUE(fs::exists(home + "/config/user_info.plist"));
}

TEST_F(SafeRemoval, AnAccountsFolderGoesOnlyWhenExactlyItIsMeant) {
    const auto remove = [&](const std::string& path) {
        return RemoveFolderSafely(path, rules, RemovalIntent::ProtectedFolder).status;
    };
    folder.makeFile("home/user/config/account_42/user_info.plist");
    folder.makeFile("home/user/data/file");
    EXPECT_EQ(remove(home + "/config"), EStatusCode::PERMISSION_NOT_ALLOWED)
        << "another account's folder lies in it";
    EXPECT_EQ(remove(home + "/data"), EStatusCode::PERMISSION_NOT_ALLOWED);
    EXPECT_EQ(remove(home), EStatusCode::PERMISSION_NOT_ALLOWED);
    EXPECT_EQ(remove(home + "/config/account_42"), EStatusCode::SUCCESS);
    EXPECT_FALSE(fs::exists(home + "/config/account_42"));
    EXPECT_EQ(remove(home + "/config"), EStatusCode::PERMISSION_NOT_ALLOWED)
        << "the place of an account's folder stays protected";
}

TEST_F(SafeRemoval, WhatLinksLeadToStays) {
    const std::string outside = folder.makeFile("outside/file", "keep");
    folder.makeFile("trap/a/b/c");
    folder.makeFile("trap/a/line\nbreak");
    folder.makeFile("trap/a/" + std::string(255, 'n'));
    folder.makeFile(
        "trap/bad\xff"
        "name");
    folder.makeLink("trap/a/to-folder", folder.path() + "/outside");
    folder.makeLink("trap/to-file", outside);
    folder.makeLink("trap/up", "..");
    folder.makeLink("trap/dangling", "nowhere");
    ASSERT_EQ(chmod(folder.makeFile("trap/read-only").c_str(), 0400), 0);
    ASSERT_EQ(mkfifo((folder / "trap/pipe").c_str(), 0600), 0);

    const RemovalReport report = RemoveFolderSafely(folder / "trap", rules);
    EXPECT_EQ(report.status, EStatusCode::SUCCESS);
    EXPECT_EQ(report.removed, 13U);
    EXPECT_FALSE(fs::exists(folder / "trap"));
    EXPECT_EQ(test_support::ContentOf(outside), "keep");
}

TEST_F(SafeRemoval, DepthCostsNoDescriptors) {
    std::string deep = folder.makeFolder("deep");
    quelm::FileDescriptor at(open(deep.c_str(), O_RDONLY | O_DIRECTORY));
    // far deeper than a path or the descriptors of a process could reach
    for (int i = 0; i < 3000; ++i) {
        ASSERT_EQ(mkdirat(at.get(), "level", 0700), 0);
        at = quelm::FileDescriptor(openat(at.get(), "level", O_RDONLY | O_DIRECTORY));
        ASSERT_TRUE(at);
    }
    EXPECT_EQ(RemoveFolderSafely(deep, rules).removed, 3001U);
    EXPECT_FALSE(fs::exists(deep));
}

void expectOtherFileSystemsStay(const test_support::TemporaryFolder& folder,
                                const RemovalRules& rules) {
    const std::string mounted = folder.makeFolder("tree/disk");
    const std::string bound = folder.makeFolder("tree/bound");
    const std::string source = folder.makeFile("source/file", "keep");
    folder.makeFile("tree/goes");
    ASSERT_EQ(mount("none", mounted.c_str(), "tmpfs", 0, "size=1m"), 0);
    folder.makeFile("tree/disk/file", "keep");
    ASSERT_EQ(mount((folder / "source").c_str(), bound.c_str(), nullptr, MS_BIND, nullptr), 0);

    EXPECT_EQ(RemoveFolderSafely(mounted, rules).removed, 0U);
    EXPECT_EQ(RemoveFolderSafely(bound, rules).removed, 0U);
    const RemovalReport report = RemoveFolderSafely(folder / "tree", rules);
    EXPECT_EQ(report.status, EStatusCode::SHARING_VIOLATION);
    EXPECT_EQ(report.removed, 1U);
    EXPECT_EQ(report.refused.size(), 2U);
    EXPECT_EQ(test_support::ContentOf(folder / "tree/disk/file"), "keep");
    EXPECT_EQ(test_support::ContentOf(source), "keep");
}

TEST_F(SafeRemoval, NoOtherFileSystemIsEntered) {
    if (const auto why = test_support::WhyNoPrivateMounts(); !why.empty()) GTEST_SKIP() << why;
    test_support::WithPrivateMounts([this] { expectOtherFileSystemsStay(folder, rules); });
}

TEST_F(SafeRemoval, FoldersThatAreExchangedForLinksLeadNowhere) {
    const std::string outside = folder.makeFile("outside/file", "keep");
    folder.makeFolder("swapped");
    for (int i = 0; i < 200; ++i) {
        folder.makeFile("tree/a/d" + std::to_string(i) + "/f");
    }
    std::atomic<bool> stop = false;
    // while the tree is removed, "a" is a folder and a link to the outside in turn
    std::thread swapper([&] {
        const std::string link = folder.makeLink("link", folder.path() + "/outside");
        while (!stop) {
            renameat2(AT_FDCWD, link.c_str(), AT_FDCWD, (folder / "tree/a").c_str(),
                      RENAME_EXCHANGE);
        }
    });
    for (int i = 0; i < 50; ++i)
        static_cast<void>(RemoveFolderSafely(folder / "tree", rules));
    stop = true;
    swapper.join();
    EXPECT_EQ(test_support::ContentOf(outside), "keep");
}

TEST_F(SafeRemoval, TheProcessesRulesHoldForThePlainFunction) {
    SetRemovalRules(rules);
    EXPECT_EQ(RecursiveRemoveFolder(home + "/config"), EStatusCode::PERMISSION_NOT_ALLOWED);
    folder.makeFile("home/user/data/file");
    EXPECT_EQ(RecursiveRemoveFolder(home + "/data"), EStatusCode::SUCCESS);
    EXPECT_EQ(RecursiveRemoveFolder(home + "/data"), EStatusCode::FILE_NOT_FOUND);
    SetRemovalRules({});
}

}  // namespace

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>

#include "platform/FileDescriptor.h"
#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/UniformTypes.h"
#include "support/ChildProcess.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using test_support::ScopedEnvironment;
using test_support::WaitUntil;

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

/// A program that tells what it was given and what it got from the process that started it, and
/// ends when it is told.
constexpr const char* tellingProgram = R"(#!/usr/bin/python3
import os, sys, time
folder = os.path.dirname(os.path.abspath(__file__))
streams = {os.readlink(f"/proc/self/fd/{number}") for number in range(3)}
others = [name for name in os.listdir("/proc/self/fd") if os.path.exists(f"/proc/self/fd/{name}")][3:]
status = dict(line.split(":", 1) for line in open("/proc/self/status"))
blocked = status["SigBlk"].strip("0 \t\n")
facts = [sys.argv[1], os.getsid(0) == os.getpid(), streams, others, blocked]
with open(folder + "/told.new", "w") as told:
    print(*facts, sep="|", end="", file=told)
with open(folder + "/id", "w") as number:
    print(os.getpid(), end="", file=number)
os.rename(folder + "/told.new", folder + "/told")
for _ in range(2000):
    if os.path.exists(folder + "/end"):
        break
    time.sleep(0.01)
)";

class TheDesktop : public TheWorkspace {
 protected:
    /// As `xdg-open`, the first of PATH.
    void install() const {
        fs::permissions(folder_.makeFile("bin/xdg-open", tellingProgram), fs::perms::owner_all);
    }
    /// What the program told; it has ended and left nothing when this returns.
    [[nodiscard]] std::string told() const {
        if (!WaitUntil([this] { return fs::exists(folder_ / "bin/told"); })) return "nothing";
        const auto program = "/proc/" + test_support::ContentOf(folder_ / "bin/id");
        const bool ran = fs::exists(program);
        const auto facts = test_support::ContentOf(folder_ / "bin/told");
        folder_.makeFile("bin/end");
        if (!WaitUntil([&] { return !fs::exists(program); })) return "a zombie is left";
        for (const char* name : {"bin/told", "bin/end"})
            fs::remove(folder_ / name);
        return ran ? facts : "it was waited for";
    }
    static std::string apart(const std::string& argument) {
        return argument + "|True|{'/dev/null'}|[]|";
    }

    ScopedEnvironment path_{"PATH", folder_ / "bin:/usr/bin:/bin"};
    std::vector<std::string> lines_;
    platform::DesktopWorkspace desktop_{[this](const auto& line) { lines_.push_back(line); }};
};

TEST_F(TheDesktop, OpensAddressesAndPathsWithAProgramApartFromThisProcess) {
    install();
    const platform::FileDescriptor inherited(::open("/dev/zero", O_RDONLY));
    sigset_t terminate;
    sigset_t before;
    ::sigemptyset(&terminate);
    ::sigaddset(&terminate, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &terminate, &before);
    for (const std::string address :
         {"https://a/?x=1&y='$(z)", "HTTP://a", "mailto:a@b", "orv:settings"}) {
        EXPECT_TRUE(desktop_.openAddress(address));
        EXPECT_EQ(told(), apart(address));
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    for (const std::string path : {"/a b/%41", "--version", "https:", "ä"}) {
        EXPECT_TRUE(desktop_.openPath(path));
        EXPECT_EQ(told(), apart(fs::absolute(path).string()));
    }
    EXPECT_TRUE(desktop_.startProgram({"xdg-open", "-x"}));
    EXPECT_EQ(told(), apart("-x"));
    EXPECT_EQ(lines_, std::vector<std::string>{});
}

TEST_F(TheDesktop, RefusesOtherAddressesWithoutTellingThem) {
    install();
    for (const std::string address :
         {"", "secret", "file:///secret", "/secret", "-secret", "javascript:secret", "https",
          ":secret", " https://secret", "https://a\nsecret", "httpsecret:"}) {
        lines_.clear();
        EXPECT_FALSE(desktop_.openAddress(address)) << address;
        EXPECT_EQ(lines_.size(), 1U) << address;
        EXPECT_THAT(lines_, testing::Each(testing::Not(testing::HasSubstr("secret"))));
    }
    EXPECT_FALSE(desktop_.openPath(""));
    EXPECT_FALSE(fs::exists(folder_ / "bin/told"));
}

TEST_F(TheDesktop, TellsWhatDoesNotStart) {
    const ScopedEnvironment none("PATH", folder_ / "bin");
    EXPECT_FALSE(desktop_.openAddress("https://a"));
    EXPECT_FALSE(desktop_.startProgram({"/absent", "secret"}));
    EXPECT_FALSE(desktop_.startProgram({}));
    EXPECT_THAT(lines_, testing::ElementsAre(testing::HasSubstr("xdg-utils"),
                                             testing::HasSubstr("/absent does not start: No such"),
                                             testing::HasSubstr("does not start")));
}

}  // namespace

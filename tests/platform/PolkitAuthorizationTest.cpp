#include <cerrno>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/linux/PolkitAuthorization.h"
#include "support/TemporaryFolder.h"

namespace {

using test_support::ContentOf;

/// A program in the place of pkcheck, which needs a daemon of the system.
class PolkitAuthorization : public testing::Test {
 protected:
    std::string script(const std::string& body) {
        std::string path = folder_.makeFile("pkcheck", "#!/bin/sh\n" + body + "\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }
    [[nodiscard]] int ask(const std::string& program, const std::string& right) {
        platform::PolkitAuthorization authorization(
            [this](const std::string& line) { reports_.push_back(line); }, program);
        (void)authorization.obtainRight(right, "rule");
        return authorization.obtainRight(right, "rule");
    }

    test_support::TemporaryFolder folder_;
    std::vector<std::string> reports_;
};

TEST_F(PolkitAuthorization, AsksForThisProcessAndAnswersTheExitStatus) {
    const std::string arguments = folder_ / "arguments";
    const std::string program =
        script("printf '%s\\n' \"$@\" > " + arguments + "; sed 's/.*) //' /proc/$PPID/stat | " +
               "cut -d' ' -f20 >> " + arguments + "");
    EXPECT_EQ(ask(program, "com.corvanta.orv.webaccess"), 0);
    std::istringstream lines(ContentOf(arguments));
    std::vector<std::string> words;
    for (std::string line; std::getline(lines, line);)
        words.push_back(line);
    ASSERT_EQ(words.size(), 6U);
    const std::string process =
        std::to_string(::getpid()) + "," + words[5] + "," + std::to_string(::getuid());
    words.pop_back();
    EXPECT_EQ(words, (std::vector<std::string>{"--action-id", "com.corvanta.orv.webaccess",
                                               "--process", process, "--allow-user-interaction"}));
    EXPECT_EQ(ask(script("exit 3"), "a.b"), 3);
    EXPECT_EQ(ask(script("kill -9 $$"), "a.b"), ECANCELED);
    EXPECT_TRUE(reports_.empty());
}

TEST_F(PolkitAuthorization, RefusesWhatIsNoActionIdAndSaysOnceWhatIsMissing) {
    const std::string program = script("exit 0");
    for (const std::string& right :
         {std::string(), std::string("--help"), std::string("a b"), std::string("a\0b", 3),
          std::string("a;b"), std::string(256, 'a')}) {
        EXPECT_EQ(ask(program, right), EINVAL) << right;
    }
    EXPECT_TRUE(reports_.empty());
    EXPECT_EQ(ask(folder_ / "absent", "a.b"), ENOENT);
    ASSERT_EQ(reports_.size(), 1U);
    EXPECT_NE(reports_[0].find("polkitd"), std::string::npos) << reports_[0];
}

}  // namespace

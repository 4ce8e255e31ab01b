#include "support/PrivateMounts.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test_support {

namespace {

enum ChildStatus { Passed = 0, Failed = 1, Refused = 2 };

int statusOfChild(const std::function<void()>& body) {
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::unshare(CLONE_NEWNS) != 0) ::_exit(Refused);
        if (::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) ::_exit(Refused);
        if (body) body();
        std::fflush(nullptr);
        ::_exit(testing::Test::HasFailure() ? Failed : Passed);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return Failed;
    return WEXITSTATUS(status);
}

}  // namespace

std::string WhyNoPrivateMounts() {
    return statusOfChild(nullptr) == Passed ? "" : "this user may not have mounts of its own";
}

void WithPrivateMounts(const std::function<void()>& body) {
    EXPECT_EQ(statusOfChild(body), Passed) << "in the child process; its failures stand above";
}

}  // namespace test_support

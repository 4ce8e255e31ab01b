#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <vector>

#include "accounts/ScriptRoutines.h"
#include "foundation/system/Log.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

namespace {

TEST(ScriptRoutines, AreNotCalledHereAndThatIsSaidAtMostOnce) {
    std::mutex mutex;
    std::vector<std::string> lines;
    quelm::SetLogSink([&](std::string_view line) {
        const std::lock_guard lock(mutex);
        lines.emplace_back(line);
    });
    const auto said = [&] {
        const std::lock_guard lock(mutex);
        return lines.size();
    };
    const test_support::TemporaryFolder folder;
    const std::string script = folder.makeFile("a.scpt");
    EXPECT_EQ(orv::ExecuteApplescript(script, "routine", {"a"}), std::nullopt);
    lines.clear();  // the process may have said it before
    EXPECT_EQ(orv::ExecuteApplescript(script, "routine", {"a"}), std::nullopt);
    EXPECT_EQ(said(), 0U);
    orv::orv_ScriptParams::executeScriptWithPath(folder / "absent", "routine", {});
    EXPECT_TRUE(test_support::WaitUntil([&] { return said() == 1; }));
    EXPECT_EQ(lines[0], "ERROR: ExecuteApplescript: " + folder / "absent" + " not found");
    quelm::SetLogSink({});
}

}  // namespace

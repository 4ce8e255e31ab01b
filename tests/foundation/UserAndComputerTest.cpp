#include <gtest/gtest.h>

#include "foundation/system/AssignmentFile.h"
#include "foundation/system/UserAndComputer.h"
#include "support/TemporaryFolder.h"

namespace {

TEST(AssignmentFile, TakesQuotesAndBackslashesOff) {
    const test_support::TemporaryFolder folder;
    const std::string path = folder.makeFile(
        "f", "# A=1\nNAME=\"Anna\\\"s \\$5\"\nNAMES=x\nB='b'\nC=\nD=1\nD=2\nbroken\nE=\"");
    const std::vector<std::pair<const char*, std::optional<std::string>>> values = {
        {"NAME", "Anna\"s $5"}, {"A", std::nullopt}, {"B", "b"}, {"C", ""}, {"D", "2"}, {"E", "\""},
        {"NAM", std::nullopt}};
    for (const auto& [name, value] : values)
        EXPECT_EQ(quelm::ReadAssignment(path, name), value) << name;
    EXPECT_EQ(quelm::ReadAssignment(folder / "absent", "A"), std::nullopt);
}

TEST(ComputerName, IsTheUsersElseTheHosts) {
    const test_support::TemporaryFolder folder;
    const std::string host = quelm::GetComputerName(folder / "absent");
    EXPECT_FALSE(host.empty());
    EXPECT_EQ(host.find('.'), std::string::npos);
    const std::string info = folder.makeFile("i", "PRETTY_HOSTNAME=\"Anna's Laptop v1.2\"\n");
    EXPECT_EQ(quelm::GetComputerName(info), "Anna's Laptop v1.2");
    for (const char* unusable : {"PRETTY_HOSTNAME=\n", "PRETTY_HOSTNAME=\xff\n", "X=1\n"})
        EXPECT_EQ(quelm::GetComputerName(folder.makeFile("i", unusable)), host);
}

}  // namespace

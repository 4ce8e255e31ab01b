#include <fmt/format.h>
#include <gtest/gtest.h>
#include <limits>

#include "accounts/FolderStatusText.h"
#include "accounts/StorageFoldersInfo.h"
#include "accounts/StorageQuotaInfo.h"
#include "foundation/system/Log.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::orv_StorageFoldersInfo;
using orv::orv_StorageFolderStatus;
using orv::orv_StorageQuotaInfo;

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

std::string folderXml(const std::string& path, const std::string& total,
                      const std::string& stored) {
    return "<folder><total>" + total + "</total><stored>" + stored + "</stored><path>" + path +
           "</path></folder>";
}
std::string storesXml(const std::string& folders) {
    return "<?xml version=\"1.0\"?>\n<response><stores>" + folders + "</stores></response>";
}

class StorageFiles : public testing::Test {
 protected:
    StorageFiles() {
        quelm::SetLogSink([this](std::string_view line) { log_.emplace_back(line); });
    }
    ~StorageFiles() override { quelm::SetLogSink({}); }

    test_support::TemporaryFolder folder_;
    std::vector<std::string> log_;
    orv_StorageFoldersInfo folders_{folder_.path()};
    orv_StorageQuotaInfo quota_{folder_.path()};
};

TEST_F(StorageFiles, FoldersAreReadInOrderAndSummedUp) {
    const test_support::ScopedEnvironment home("HOME", "/home/me");
    folder_.makeFile("storage_folders.xml",
                     storesXml(folderXml("/a//b/./c/", "100", "50") +
                               folderXml("~/Caf\u00e9 &amp; &lt;Co&gt; &#228;", " +7\n", "7") +
                               "<x><total>1</total><path>/lacks/stored</path></x>text<!-- -->"
                               "<empty/>" +
                               folderXml("<![CDATA[/c<d]]>", "-3", "12 bytes")));
    EXPECT_FALSE(folders_.load()) << "whatever happened";
    ASSERT_EQ(folders_.list().size(), 3U);
    EXPECT_TRUE(folders_.list()[0].isEqual({"/A/B/C", 100, 50}));
    EXPECT_EQ(folders_.list()[1].path(), "/home/me/Caf\u00e9 & <Co> \u00e4");
    EXPECT_TRUE(folders_.list()[1].isBackedUp());
    EXPECT_TRUE(folders_.list()[2].isEqual({"/c<d", -3, 12}));
    EXPECT_FALSE(folders_.list()[2].isEqual({"/c<d", -3, 11}));
    EXPECT_EQ(folders_.total(), 104);
    EXPECT_EQ(folders_.stored(), 69);

    EXPECT_TRUE(folders_.loadData("<stores/>"));
    EXPECT_TRUE(folders_.list().empty());
    EXPECT_EQ(folders_.total() + folders_.stored(), 0);
    EXPECT_EQ(log_, std::vector<std::string>{});
}

TEST_F(StorageFiles, WhatCannotBeReadLeavesTheFoldersAsTheyWere) {
    ASSERT_TRUE(folders_.loadData(storesXml(folderXml("/a", "1", "1"))));
    for (const std::string& data :
         {std::string(), std::string("no XML"), std::string("<a><stores>"),
          std::string("<response><b><stores/></b></response>"), std::string("<html/>"),
          std::string("\0\0<stores/>", 11), std::string(100'000, '<'),
          storesXml("").substr(0, 40)}) {
        log_.clear();
        EXPECT_FALSE(folders_.loadData(data)) << data.substr(0, 40);
        ASSERT_EQ(log_.size(), 1U) << data.substr(0, 40);
        EXPECT_TRUE(log_[0].starts_with("ERROR: Cannot load storage_folders info: "));
        EXPECT_EQ(folders_.list().size(), 1U);
        EXPECT_EQ(folders_.total(), 1);
    }
    log_.clear();
    EXPECT_FALSE(folders_.loadAtPath(folder_ / "missing.xml"));
    EXPECT_EQ(log_, std::vector<std::string>{}) << "the agent has not written it yet";
    EXPECT_FALSE(folders_.loadAtPath(folder_.path()));
    EXPECT_EQ(log_.size(), 1U) << "a folder in its place";
    EXPECT_EQ(folders_.list().size(), 1U);
}

TEST_F(StorageFiles, HugeNumbersStayAtTheEndsOf64Bits) {
    ASSERT_TRUE(folders_.loadData(
        storesXml(folderXml("/a", "9223372036854775807", "-9223372036854775808") +
                  folderXml("/b", "99999999999999999999999", "-99999999999999999999999") +
                  folderXml("/c", "five", ""))));
    EXPECT_TRUE(folders_.list()[1].isEqual({"/b", largest, smallest}));
    EXPECT_TRUE(folders_.list()[2].isEqual({"/c", 0, 0}));
    EXPECT_EQ(folders_.total(), largest);
    EXPECT_EQ(folders_.stored(), smallest);
}

TEST_F(StorageFiles, FoldersAreFoundByTheirPathExactlyElseWithoutRegardToCase) {
    ASSERT_TRUE(folders_.loadData(
        storesXml(folderXml("/users/a/documents", "1", "1") + folderXml("/Docs", "2", "1") +
                  folderXml("/docs", "3", "1") + folderXml("/\u00c4rger", "4", "1"))));
    const std::vector<std::pair<std::string, std::int64_t>> cases = {{"/Users/A/Documents", 1},
                                                                     {"/users//a/documents/", 1},
                                                                     {"/Docs", 2},
                                                                     {"/docs", 3},
                                                                     {"/DOCS", 2},
                                                                     {"/\u00e4RGER", 4},
                                                                     {"/doc", 0},
                                                                     {"/docs/a", 0},
                                                                     {"/users/a", 0},
                                                                     {"/s/documents", 0},
                                                                     {"/argerx", 0},
                                                                     {"", 0}};
    for (const auto& [path, total] : cases) {
        const auto* const found = folders_.findInfoForPath(path);
        EXPECT_EQ(found ? found->total() : 0, total) << path;
    }
}

TEST_F(StorageFiles, HoldAHundredThousandFolders) {
    std::string folders;
    for (int i = 0; i < 100'000; ++i)
        folders += folderXml(fmt::format("/home/me/folder {}", i), "10", "5");
    ASSERT_TRUE(folders_.loadData(storesXml(folders)));
    EXPECT_EQ(folders_.list().size(), 100'000U);
    EXPECT_EQ(folders_.total(), 1'000'000);
    EXPECT_EQ(folders_.findInfoForPath("/HOME/me/folder 99999"), &folders_.list().back());
}

TEST_F(StorageFiles, QuotaHasWhatIsThereAndZeroForTheRest) {
    EXPECT_FALSE(quota_.load()) << "missing";
    EXPECT_FALSE(quota_.haveQuota());
    folder_.makeFile("storage_quota.xml",
                     "<x><request><parameters>"
                     "<total-other-computers>1</total-other-computers>"
                     "<stored-other-computers>2</stored-other-computers>"
                     "<total-this-computer>3</total-this-computer>"
                     "<stored-this-computer>4</stored-this-computer>"
                     "<total-quota>5368709120</total-quota></parameters></request></x>");
    EXPECT_TRUE(quota_.load());
    EXPECT_EQ(quota_.totalOtherComputers(), 1);
    EXPECT_EQ(quota_.storedOtherComputers(), 2);
    EXPECT_EQ(quota_.totalThisComputer(), 3);
    EXPECT_EQ(quota_.storedThisComputer(), 4);
    EXPECT_EQ(quota_.quota(), 5'368'709'120);
    EXPECT_TRUE(quota_.haveQuota());
    EXPECT_FALSE(quota_.unlimitedQuota());

    for (const char* bad : {"", "<request/>", "<a><parameters/></a>", "<request><parameters>"}) {
        log_.clear();
        EXPECT_FALSE(quota_.loadData(bad)) << bad;
        ASSERT_EQ(log_.size(), 1U) << bad;
        EXPECT_TRUE(log_[0].starts_with("ERROR: Cannot load storage_quota info: "));
        EXPECT_EQ(quota_.quota(), 5'368'709'120);
    }
    EXPECT_FALSE(quota_.loadData("<request/>"));
    EXPECT_EQ(log_.back(), "ERROR: Cannot load storage_quota info: parameters not recognized");

    EXPECT_TRUE(quota_.loadData("<request><parameters/></request>"));
    EXPECT_EQ(quota_.totalThisComputer(), 0);
    EXPECT_FALSE(quota_.haveQuota());
}

TEST_F(StorageFiles, AQuotaOfAllBitsIsUnlimited) {
    const std::vector<std::pair<std::string, bool>> cases = {{"-1", true},
                                                             {"18446744073709551615", true},
                                                             {"\n +18446744073709551615\n", true},
                                                             {"-18446744073709551615", false},
                                                             {"18446744073709551614", false},
                                                             {"-2", false},
                                                             {"0", false},
                                                             {"9223372036854775807", false}};
    for (const auto& [number, unlimited] : cases) {
        ASSERT_TRUE(quota_.loadData("<request><parameters><total-quota>" + number +
                                    "</total-quota></parameters></request>"));
        EXPECT_EQ(quota_.unlimitedQuota(), unlimited) << number;
    }
}

TEST(FolderStatusText, IsTheFirstRuleThatHolds) {
    struct Case {
        std::string text;
        orv::FolderState state;
        std::int64_t total = 0;
        std::int64_t stored = 0;
    };
    const std::vector<Case> cases = {
        {"Excluded (by policy)", {.excluded = true, .exists = false, .offline = true}},
        {"Volume offline", {.exists = false, .offline = true}, 1, 1},
        {"Folder is missing", {.exists = false}, 1, 1},
        {"Fully Backed Up (0 B)", {}, 0, 0},
        {"Fully Backed Up (1.5 KB)", {}, 1536, 1536},
        {"25% Backed Up", {}, 50, 25},
        {"100% Backed Up", {}, 100'000'000, 99'999'999},
        {"33% Backed Up", {}, 1000, 333},
        {"17% Backed Up", {}, 150, 25},
        {"200% Backed Up", {}, 1000, 2000},
        {"0% Backed Up", {}, largest, 0},
        {"7% Backed Up", {}, -5, 7},
    };
    for (auto [text, state, total, stored] : cases) {
        const orv_StorageFolderStatus record("/a", total, stored);
        state.record = &record;
        EXPECT_EQ(orv::FolderStatusText(state), text);
    }
    EXPECT_EQ(orv::FolderStatusText({}), "0% Backed Up") << "without a record";
}

}  // namespace

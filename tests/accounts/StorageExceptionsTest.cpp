#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

#include "accounts/filters/FolderPatterns.h"
#include "accounts/filters/StorageExceptions.h"
#include "foundation/system/Log.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::FolderPatterns;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class StorageExceptions : public testing::Test {
 protected:
    StorageExceptions() {
        quelm::SetLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~StorageExceptions() override { quelm::SetLogSink({}); }

    const test_support::TemporaryFolder folder;
    const std::string file = folder / "storage_exceptions.xml";
    std::vector<std::string> log;
};

TEST_F(StorageExceptions, AreTheTextsOfAllElements) {
    folder.makeFile("storage_exceptions.xml",
                    R"(<?xml version="1.0"?><!DOCTYPE x [<!ENTITY e SYSTEM "/etc/passwd">]>
        <!-- a --><backup-exclusions>text<types/><patterns>
          <pattern>/Caches/</pattern> between <x> <![CDATA[a<b]]>&amp;<y>c</y></x><!-- b -->
          <pattern>&e;</pattern><empty/><blank> </blank>
        </patterns><types><t>*.second</t></types></backup-exclusions>)");
    EXPECT_THAT(orv::ReadExcludedFolders(file), ElementsAre("/Caches/", " a<b&c", "&e;", "", " "));
    EXPECT_THAT(orv::ReadExcludedFileTypes(file), IsEmpty()) << "only the first element counts";
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(StorageExceptions, AMissingFileIsSilentAndABadOneIsLoggedOnceACall) {
    EXPECT_THAT(orv::ReadExcludedFolders(file), IsEmpty());
    EXPECT_THAT(orv::ReadExcludedFileTypes(folder.path()), IsEmpty());
    EXPECT_THAT(log, IsEmpty());
    const std::string deep(200'000, '<');
    for (const std::string& content :
         {std::string(), std::string("<backup-exclusions><types><t>a</t></types>"),
          std::string("<other><types><t>a</t></types></other>"), std::string("no xml"),
          std::string("<backup-exclusions><folders/></backup-exclusions>"), deep}) {
        log.clear();
        folder.makeFile("storage_exceptions.xml", content);
        EXPECT_THAT(orv::ReadExcludedFileTypes(file), IsEmpty());
        EXPECT_THAT(log,
                    ElementsAre(StartsWith("ERROR: Cannot load storage_exceptions.xml info: ")))
            << content.substr(0, 60);
    }
}

TEST_F(StorageExceptions, AreBoundedInNumber) {
    std::string many;
    for (int i = 0; i < 10'001; ++i)
        many += "<t>*.x</t>";
    folder.makeFile("storage_exceptions.xml", "<backup-exclusions><types>" + many +
                                                  "</types><patterns>" + many +
                                                  "</patterns></backup-exclusions>");
    EXPECT_EQ(orv::ReadExcludedFileTypes(file).size(), 10'000U);
    EXPECT_EQ(orv::ReadExcludedFolders(file).size(), 1'000U);
    EXPECT_EQ(log.size(), 2U);
}

using FolderPatternsTest = StorageExceptions;

TEST_F(FolderPatternsTest, MatchAnywhereInThePathWithoutRegardToCase) {
    EXPECT_TRUE(FolderPatterns().empty());
    EXPECT_FALSE(FolderPatterns().matches("/a"));
    struct Case {
        std::vector<std::string> expressions;
        std::vector<std::string> matching;
        std::vector<std::string> others;
    };
    const Case cases[] = {
        {{"/caches?(/|$)"}, {"/a/Cache", "/CACHES/b"}, {"/cached"}},
        {{""}, {"", "/a"}, {}},
        {{"\xc3\x84rger/."}, {"/\xff/\xc3\xa4RGER/a\xff"}, {"/\xe4rger/a", "/\xc3\xa4rger/\xff"}},
        // what must not be disturbed by other expressions, nor disturb them
        {{"a|^/b", "(x)(y)\\2", "c$"}, {"/b", "/c", "/xyy"}, {"/d/b", "/xyx", "/cd"}},
        {{"(?x) a b # c", "d"}, {"/ab", "/d"}, {"/a b"}},
        {{"\\Qa.b", "d"}, {"a.b", "d"}, {"aXb"}},
        {{"(?<n>a)\\k<n>", "(?<n>b)\\k<n>"}, {"aa", "bb"}, {"ab"}},
        {{"(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)", "\\12"}, {"\n", "abcdefghij"}, {"b", "abc"}},
        {{"(*UCP)(*LIMIT_MATCH=1)x", "d"}, {"d"}, {"a"}},
        {{"(?-i)Q", "q?r"}, {"Q", "R", "qr"}, {"q"}},
    };
    for (const Case& expected : cases) {
        const FolderPatterns patterns(expected.expressions);
        EXPECT_EQ(patterns.size(), expected.expressions.size());
        for (const auto& path : expected.matching)
            EXPECT_TRUE(patterns.matches(path)) << expected.expressions[0] << " on " << path;
        for (const auto& path : expected.others)
            EXPECT_FALSE(patterns.matches(path)) << expected.expressions[0] << " on " << path;
    }
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(FolderPatternsTest, WhatCannotBeCompiledIsLoggedAndLeftOutAlone) {
    const std::vector<std::string> bad = {"(",
                                          "[a",
                                          "a\\",
                                          "\xff",
                                          "\\C",
                                          "(?<=a*)b",
                                          std::string(5'000, 'a'),
                                          std::string(400, '(') + std::string(400, ')'),
                                          "(((a{1,900}){1,900}){1,900})"};
    auto all = bad;
    all.insert(all.begin() + 2, "good");
    const FolderPatterns patterns(all);
    EXPECT_EQ(patterns.size(), 1U);
    EXPECT_TRUE(patterns.matches("/GOOD"));
    ASSERT_EQ(log.size(), bad.size());
    EXPECT_EQ(log[0], "ERROR: Unable to create regular expression from string: (");
    EXPECT_LT(log[6].size(), 400U);
}

TEST_F(FolderPatternsTest, ManyExpressionsMatchAsEachAloneDoes) {
    std::vector<std::string> expressions;
    for (int i = 0; i < 300; ++i) {
        expressions.push_back((i % 7 ? "/(dir|map)" : "/(d)(?i:ir|ap)") + std::to_string(i) +
                              (i % 2 ? "/" : "$"));
    }
    const FolderPatterns patterns(expressions);
    EXPECT_EQ(patterns.size(), expressions.size());
    for (int i = 0; i < 300; ++i) {
        const std::string path = "/home/DIR" + std::to_string(i);
        EXPECT_EQ(patterns.matches(path), i % 2 == 0) << path;
        EXPECT_EQ(patterns.matches(path + "/x"), i % 2 == 1) << path;
    }
}

TEST_F(FolderPatternsTest, ACatastrophicExpressionCountsAsNoMatchAndIsLoggedOnce) {
    const FolderPatterns patterns({"/cache$", "(a+)+$", "(?:b|bb)+$", "/temp$"});
    const std::string hard = "/" + std::string(4'000, 'a') + "!" + std::string(4'000, 'b') + "!";
    for (int i = 0; i < 1'000; ++i)
        ASSERT_FALSE(patterns.matches(hard));
    EXPECT_THAT(log, testing::UnorderedElementsAre(HasSubstr("slow"), HasSubstr("slow")));
    EXPECT_TRUE(patterns.matches(hard + "/Cache")) << "the others hold";
    EXPECT_TRUE(patterns.matches(hard + "/temp"));
}

TEST_F(FolderPatternsTest, ManySlowExpressionsThatNeverGiveUpUseTheirTimeUp) {
    std::vector<std::string> expressions = {"/cache$"};
    for (int i = 0; i < 20; ++i)
        expressions.push_back("(a|b)+(a|b)+[!?]" + std::to_string(i) + "|/easy$");
    const FolderPatterns patterns(expressions);
    EXPECT_TRUE(patterns.matches("/easy"));
    std::string hard = "/home/";
    for (int i = 0; i < 85; ++i)
        hard += "ab";
    for (int i = 0; i < 2'000 && log.size() < 20; ++i)
        ASSERT_FALSE(patterns.matches(hard + std::to_string(i)));
    for (int i = 0; i < 500; ++i)
        ASSERT_FALSE(patterns.matches(hard));
    EXPECT_EQ(log.size(), 20U) << "once each";
    EXPECT_FALSE(patterns.matches("/easy")) << "they are not tried any more";
    EXPECT_TRUE(patterns.matches("/cache")) << "the others hold";
}

TEST_F(FolderPatternsTest, LongPathsAreSearchedToTheirEnd) {
    const FolderPatterns patterns({"(?i)x/(\xc3\xa4+|b)$", "\\Gy", "z(*COMMIT)a", "^.*\n?(?<=c)d"});
    for (std::size_t length = 0; length < 300; ++length) {
        const std::string start(length, '/');
        EXPECT_FALSE(patterns.matches(start + "-x/a"));
        EXPECT_TRUE(patterns.matches(start + "x/\xc3\x84\xc3\xa4"));
        EXPECT_TRUE(patterns.matches(start + "cd"));
        EXPECT_FALSE(patterns.matches(start + "d"));
        EXPECT_FALSE(patterns.matches("/zb" + start + "yza"));
    }
    EXPECT_TRUE(patterns.matches("y"));
    EXPECT_TRUE(patterns.matches("za"));
}

TEST_F(FolderPatternsTest, CopiesServeSeveralThreads) {
    const FolderPatterns patterns({"/cache$", "(a+)+$", "/temp$"});
    const std::string hard(100, 'a');
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([copy = patterns, &hard] {
            for (int n = 0; n < 200; ++n) {
                EXPECT_FALSE(copy.matches(hard + "!"));
                EXPECT_TRUE(copy.matches(hard + "/temp"));
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(log.size(), 1U);
}

}  // namespace

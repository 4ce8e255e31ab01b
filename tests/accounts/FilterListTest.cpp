#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "accounts/filters/FilterCategories.h"
#include "accounts/filters/FilterList.h"
#include "support/PlainFilterList.h"

namespace {

using orv::orv_FilterList;
using test_support::DecideInOrder;

void addCategories(orv_FilterList& list) {
    for (const auto& category : orv::FilterCategories())
        list.addFilters(category.type, category.patterns);
}

TEST(FilterList, AnEmptyOneAnswersWhatItWasMadeWithAndOthersTheFirstMatch) {
    std::uint32_t type = 77;
    EXPECT_TRUE(orv_FilterList(true).isIncluded("a", type));
    EXPECT_EQ(type, 0U);
    type = 77;
    EXPECT_FALSE(orv_FilterList(false).isIncluded("a", type));
    EXPECT_EQ(type, 0U);

    constexpr std::array<const char*, 4> patterns = {"*.B", "pre*", nullptr, "*"};
    orv_FilterList list(true);
    list.addFilters(3, patterns.data());
    list.addFilter("*.b", 4);
    list.addFilter("*re.a", 5);
    list.addFilter("*.a", 6);
    const std::pair<const char*, std::uint32_t> cases[] = {
        {"x.b", 3}, {"PRE.A", 3}, {"more.a", 5}, {"x.A", 6}, {"a.pre.b", 3}, {".a", 6}};
    for (const auto& [name, expected] : cases) {
        EXPECT_TRUE(list.isIncluded(name, type)) << name;
        EXPECT_EQ(type, expected) << name;
    }
    type = 77;
    for (const char* name : {"", ".", "x.", "a", "x.a.", "x.abcdefghijklmnop"})
        EXPECT_FALSE(list.isIncluded(name, type)) << name;
    EXPECT_EQ(type, 77U) << "no match leaves the type as it was";
}

TEST(FilterList, ACategoryKeepsItsOddPatterns) {
    orv_FilterList list(true);
    addCategories(list);
    EXPECT_EQ(list.all().size(), 282U);
    const std::pair<const char*, std::uint32_t> cases[] = {{"a.template", 1},
                                                           {" a.qxt", 1},
                                                           {"ledger.HCX", 2},
                                                           {"rawcrw", 3},
                                                           {"a.jpg2", 3},
                                                           {"b.gz", 4},
                                                           {"x.photolibraryaplibrarycmt", 0},
                                                           {"b.odb", 5},
                                                           {"xm3url", 6},
                                                           {"a.photolibrary.aplibrary.cmt", 3},
                                                           {"a.mpa", 6},
                                                           {"a.xml", 1},
                                                           {"a.theater.fcpbundle.AAM", 7},
                                                           {"a.vfw", 7},
                                                           {"a.qxt", 0},
                                                           {"a.imovielibrary", 7}};
    for (const auto& [name, expected] : cases) {
        std::uint32_t type = 0;
        EXPECT_EQ(list.isIncluded(name, type), expected != 0) << name;
        EXPECT_EQ(type, expected) << name;
    }
}

/// Names made of what patterns are made of, so that all kinds of near misses occur.
class Names {
 public:
    explicit Names(const orv_FilterList& list) {
        for (const auto& filter : list.all()) {
            pieces_.push_back(filter.comparedPattern());
            pieces_.push_back(filter.comparedPattern().substr(1));
        }
        for (const char* piece : {".", "..", "a", "Z", " ", "\xc3\xa4", "\xff", "report", "*"})
            pieces_.insert(pieces_.end(), 20, piece);
    }
    std::string next() {
        std::string name;
        for (auto count = random_() % 4; count > 0; --count)
            name += pieces_[random_() % pieces_.size()];
        if (random_() % 3 == 0) {
            for (char& c : name)
                c = c >= 'a' && c <= 'z' && random_() % 2 ? static_cast<char>(c - 'a' + 'A') : c;
        }
        return name;
    }

 private:
    std::vector<std::string> pieces_;
    std::mt19937 random_{11};
};

void expectIndexDecidesAsInOrder(const orv_FilterList& list, int count) {
    Names names(list);
    int matched = 0;
    for (int i = 0; i < count; ++i) {
        const std::string name = names.next();
        const auto* const expected = DecideInOrder(list, name);
        matched += expected != nullptr;
        ASSERT_EQ(list.decidingFilter(name), expected) << name;
    }
    EXPECT_GT(matched, count / 10);
    EXPECT_LT(matched, count - count / 100);
}

TEST(FilterList, TheIndexDecidesAsTheFiltersInOrderDo) {
    orv_FilterList list(true);
    addCategories(list);
    for (const char* pattern :
         {"*.tar.gz", "report*", "*a*.PDF", "?Z*", "*.", "*~", "[a-c]*.d?", "*.ABCDEFGH",
          "*.abcdefghi", "a.a", "*.\xc3\xa4", "\xff*", "*\\.", "*[xyz]", "* .zz"})
        list.addFilter(pattern, 8);
    expectIndexDecidesAsInOrder(list, 100'000);
}

TEST(FilterList, TheIndexHoldsForRandomListsAndForVeryLongOnes) {
    std::mt19937 random(5);
    const std::vector<std::string> pieces = {"*",  "*.", ".", "a",  "B",  "?",    "[ab]",
                                             "\\", "]",  "[", "c.", ".d", "\xe4", "abcdefgh"};
    for (int round = 0; round < 200; ++round) {
        orv_FilterList list(true);
        for (std::uint32_t i = 0; i < 100; ++i) {
            std::string pattern(random() % 3 ? "*." : "");
            for (auto count = 1 + random() % 3; count > 0; --count)
                pattern += pieces[random() % pieces.size()];
            if (pattern.find_first_not_of("*?") != pattern.npos) list.addFilter(pattern.c_str(), i);
        }
        expectIndexDecidesAsInOrder(list, 1'000);
    }
    orv_FilterList list(false);
    for (std::uint32_t i = 0; i < 10'000; ++i) {
        const std::string text = std::to_string(i);
        list.addFilter((i % 3 ? "*.e" + text : i % 2 ? "p" + text + "*" : "*s" + text).c_str(), i);
    }
    const orv_FilterList copy = list;
    list = orv_FilterList(true);
    expectIndexDecidesAsInOrder(copy, 2'000);
}

TEST(FilterList, ExtensionsEqualEachOtherAsTheirBytesDo) {
    for (int byte = 1; byte < 256; ++byte) {
        orv_FilterList list(false);
        list.addFilter(("*.x" + std::string(1, static_cast<char>(byte))).c_str(), 1);
        for (int other = 1; other < 256; ++other) {
            const std::string name = "a.X" + std::string(1, static_cast<char>(other));
            ASSERT_EQ(list.decidingFilter(name), DecideInOrder(list, name)) << byte << name;
        }
    }
}

TEST(FilterList, NothingBehindAMatchForEverythingIsReached) {
    for (const char* everything : {"", "*"}) {
        orv_FilterList list(false);
        list.addFilter("*.a", 1);
        list.addFilter(everything, 2);
        list.addFilter("*.b", 3);
        list.addFilter("p*", 4);
        for (const auto& [name, expected] :
             {std::pair{"x.a", 1U}, {"x.b", 2U}, {"p", 2U}, {"", 2U}}) {
            std::uint32_t type = 0;
            EXPECT_TRUE(list.isIncluded(name, type));
            EXPECT_EQ(type, expected) << name;
        }
    }
}

}  // namespace

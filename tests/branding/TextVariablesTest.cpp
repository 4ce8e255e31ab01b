#include <gtest/gtest.h>

#include "foundation/system/Log.h"
#include "support/TextVariables.h"

namespace {

using orv::ReplaceVariables;
using orv::StyledText;
using orv::TextVariables;

TEST(TextVariables, BecomeTheirValuesEverywhere) {
    const TextVariables variables = {
        {"$(A)", "<$(B)>"}, {"$(B)", "$(B)$(A)"}, {"$(E)", ""}, {"$(F:-%s)", "f"}};
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", ""},
        {"plain", "plain"},
        {"$(UNKNOWN) $(A", "$(UNKNOWN) $(A"},
        {"$(E)$(F:-%s)x$(E)", "fx"},
        {"$(F:-%d)", "$(F:-%d)"},
        // $(A) is before $(B) in the table, so it stays where a value of $(B) brings it in
        {"$(A)$(A)", "<$(B)$(A)><$(B)$(A)>"},
        {"$(B)", "$(B)$(A)"},
    };
    for (const auto& [text, result] : cases)
        EXPECT_EQ(ReplaceVariables(text, variables), result);
}

TEST(TextVariables, KeepTheStylesAroundThem) {
    const TextVariables variables = {{"$(A)", "value"}, {"$(E)", ""}};
    struct Case {
        const char* what;
        StyledText text;
        StyledText result;
    };
    const std::vector<Case> cases = {
        {"one run over everything", {"x $(A) y", {{0, 8, 1}}}, {"x value y", {{0, 9, 1}}}},
        {"runs side by side",
         {"ab$(A)cd", {{0, 2, 1}, {2, 4, 2}, {6, 2, 3}}},
         {"abvaluecd", {{0, 2, 1}, {2, 5, 2}, {7, 2, 3}}}},
        {"a boundary inside",
         {"ab$(A)cd", {{0, 4, 1}, {4, 4, 2}}},
         {"abvaluecd", {{0, 7, 1}, {7, 2, 2}}}},
        {"a run inside", {"$(A)", {{0, 2, 1}, {2, 1, 2}, {3, 1, 3}}}, {"value", {{0, 5, 1}}}},
        {"an empty value", {"a$(E)b", {{1, 4, 1}, {5, 1, 2}}}, {"ab", {{1, 1, 2}}}},
        {"several, side by side",
         {"$(A)$(E)$(A)!", {{4, 4, 1}, {8, 5, 2}}},
         {"valuevalue!", {{5, 6, 2}}}},
        {"runs beyond the text", {"$(A)", {{2, 99, 1}, {std::string::npos, 5, 2}}}, {"value", {}}},
        {"nothing to replace", {"ab", {{0, 1, 1}, {7, 2, 2}}}, {"ab", {{0, 1, 1}, {7, 2, 2}}}},
    };
    for (auto [what, text, result] : cases) {
        ReplaceVariables(text, variables);
        EXPECT_EQ(text.text, result.text) << what;
        EXPECT_TRUE(text.runs == result.runs) << what;
    }
}

TEST(TextVariables, CannotMakeATextGrowWithoutBound) {
    std::string manyB, manyC;
    for (int i = 0; i < 1000; ++i) {
        manyB += "$(B)";
        manyC += "$(C)";
    }
    std::vector<std::string> log;
    quelm::SetLogSink([&log](std::string_view line) { log.emplace_back(line); });
    const TextVariables variables = {{"$(A)", manyB}, {"$(B)", manyC}, {"$(C)", "c"}};
    EXPECT_EQ(ReplaceVariables("$(A)", variables), manyB) << "a million of the last one do not fit";
    EXPECT_EQ(ReplaceVariables("$(B)", variables), std::string(1000, 'c'));
    quelm::SetLogSink({});
    ASSERT_EQ(log.size(), 1U);
    EXPECT_NE(log[0].find("$(B)"), std::string::npos);
}

}  // namespace

#include <gtest/gtest.h>
#include <limits>

#include "foundation/xml/XmlDocument.h"
#include "foundation/xml/XmlElements.h"

namespace {

std::int64_t integerIn(const std::string& text) {
    const auto parsed = quelm::ParseXml("<n>" + text + "</n>");
    return parsed.document ? quelm::IntegerOf(parsed.document->document_element()) : -99;
}

TEST(XmlElements, NumbersAreReadAsFarAsTheyGo) {
    using Limits = std::numeric_limits<std::int64_t>;
    const std::vector<std::pair<std::string, std::int64_t>> cases = {
        {"", 0},
        {"0", 0},
        {" \n 12 ", 12},
        {"-5", -5},
        {"+5", 5},
        {"+-5", 0},
        {"--5", 0},
        {"0x10", 0},
        {"1e3", 1},
        {"3.9", 3},
        {"abc", 0},
        {"<!-- 1 -->7", 7},
        {"9223372036854775807", Limits::max()},
        {"9223372036854775808", Limits::max()},
        {"-9223372036854775809", Limits::min()},
        {" " + std::string(100'000, '9'), Limits::max()},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(integerIn(text), number) << text.substr(0, 30);
    EXPECT_EQ(quelm::IntegerOf({}), 0);
}

}  // namespace

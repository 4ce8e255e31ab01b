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
        {"1<![CDATA[2]]><x>3</x>", 123},
        {"9223372036854775807", Limits::max()},
        {"9223372036854775808", Limits::max()},
        {"-9223372036854775809", Limits::min()},
        {" " + std::string(100'000, '9'), Limits::max()},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(integerIn(text), number) << text.substr(0, 30);
    EXPECT_EQ(quelm::IntegerOf({}), 0);
    EXPECT_EQ(quelm::TextOf({}), "");
}

TEST(XmlDocument, IsRefusedWhenItRefersToANul) {
    const std::string wide(
        "<\0n\0>\0&\0#\0"
        "0\0;\0<\0/\0n\0>\0",
        22);
    EXPECT_EQ(quelm::ParseXml(wide).error, "the document holds a NUL");
    for (const char* reference : {"&#0;", "&#x0;", "&#000;", "&#4294967296;", "&#x100000000;"}) {
        const std::string text = std::string("<n a='") + reference + "'/>";
        EXPECT_EQ(quelm::ParseXml(text).error, "the document holds a NUL") << reference;
    }
    for (const char* harmless : {"&#1;", "&#;", "&#x;", "&#0", "&#xg0;", "&amp;#0;", "&#10;"})
        EXPECT_TRUE(quelm::ParseXml(std::string("<n>") + harmless + "</n>").document) << harmless;
}

}  // namespace

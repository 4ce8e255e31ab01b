#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <locale>

#include "foundation/propertylist/PropertyList.h"
#include "foundation/texts/Base64.h"
#include "foundation/texts/IsoDate.h"

namespace {

using quelm::Array;
using quelm::Data;
using quelm::Date;
using quelm::Dictionary;
using quelm::ReadPropertyList;
using quelm::Value;
using quelm::WritePropertyList;

std::string document(std::string_view body) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><!DOCTYPE plist SYSTEM \"x\">"
           "<plist version=\"1.0\">" +
           std::string(body) + "</plist>";
}

std::optional<Value> read(std::string_view body) {
    return ReadPropertyList(document(body)).value;
}

Value sample() {
    return Dictionary{
        {"array", Array{1, "two", Array{}, Dictionary{}}},
        {"data", Data{std::string("\0\x01\xff", 3)}},
        {"date", Date{1'700'000'000}},
        {"integers", Array{std::numeric_limits<std::int64_t>::min(), -1, 0,
                           std::numeric_limits<std::int64_t>::max()}},
        {"reals", Array{0.1, -1e-300, 1.7976931348623157e308, 5e-324, 2.0, -0.0,
                        std::numeric_limits<double>::infinity()}},
        {"", ""},
        {"text <&>\"'", "a\r\nb\tc\u00e9\U0001F600 ]]>  "},
        {"true", true},
    };
}

TEST(PropertyList, WhatIsWrittenReadsBackTheSame) {
    const auto text = WritePropertyList(sample());
    ASSERT_TRUE(text);
    const auto result = ReadPropertyList(*text);
    EXPECT_EQ(result.value, sample()) << result.error;
    EXPECT_EQ(WritePropertyList(*result.value), text);
}

TEST(PropertyList, TheWrittenFormIsTheUsualOne) {
    const auto text = WritePropertyList(Dictionary{{"b", Array{true, -0.5}}, {"a", "x&y"}});
    EXPECT_EQ(*text,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
              "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
              "<plist version=\"1.0\">\n<dict>\n\t<key>a</key>\n\t<string>x&amp;y</string>\n"
              "\t<key>b</key>\n\t<array>\n\t\t<true/>\n\t\t<real>-0.5</real>\n\t</array>\n"
              "</dict>\n</plist>\n");
}

struct CommaNumbers : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(PropertyList, NoLocaleChangesNumbers) {
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
    const auto text = WritePropertyList(Array{1234567, 1234.5});
    const auto value = ReadPropertyList(*text).value;
    std::locale::global(before);
    EXPECT_NE(text->find("<integer>1234567</integer>"), std::string::npos);
    EXPECT_NE(text->find("<real>1234.5</real>"), std::string::npos);
    EXPECT_EQ(value, (Array{1234567, 1234.5}));
}

TEST(PropertyList, ReadsTheFormsThatOthersWrite) {
    const std::vector<std::pair<const char*, Value>> cases = {
        {"<integer> +12 </integer>", 12},
        {"<integer>0xFF</integer>", 255},
        {"<real>1E3</real>", 1000.0},
        {"<real>+infinity</real>", std::numeric_limits<double>::infinity()},
        {"<string><![CDATA[<b>]]>&amp;c</string>", "<b>&c"},
        {"<string>a<!-- note -->b</string>", "ab"},
        {"<string> </string>", " "},
        {"<string>&#x41;&#66;&#x1F600;</string>", "AB\U0001F600"},
        {"<string/>", ""},
        {"<string>a\r\nb\rc</string>", "a\nb\nc"},
        {"<data>\n\tAAH/\n\t</data>", Data{std::string("\0\x01\xff", 3)}},
        {"<date>2024-02-29T23:59:59Z</date>", Date{1'709'251'199}},
        {"<dict> <!-- c --> <key>b</key><true></true><key>a</key><false/></dict>",
         Dictionary{{"a", false}, {"b", true}}},
        {"<dict><key>a</key><integer>1</integer><key>a</key><integer>2</integer></dict>",
         Dictionary{{"a", 2}}},
        {"<array>\n</array>", Array{}},
    };
    for (const auto& [body, value] : cases)
        EXPECT_EQ(read(body), value) << body;
    EXPECT_TRUE(std::isnan(*read("<real>nan</real>")->asReal()));
    EXPECT_EQ(ReadPropertyList("<dict/>").value, Value(Dictionary{}));
    EXPECT_EQ(ReadPropertyList("\xEF\xBB\xBF<plist><true/></plist>").value, Value(true));
    const std::string utf16 = "<plist><string>a</string></plist>";
    std::string encoded = "\xFE\xFF";
    for (const char c : utf16)
        encoded += {'\0', c};
    EXPECT_EQ(ReadPropertyList(encoded).value, Value("a"));
}

TEST(PropertyList, MalformedListsAreRefusedWithAReason) {
    const std::vector<std::string> malformed = {
        "",
        " ",
        "text",
        "<plist>",
        "<plist/>",
        "<plist><dict>",
        "<plist><dict/></plist><plist/>",
        document("<true/><true/>"),
        document("<unknown/>"),
        document("<dict><true/></dict>"),
        document("<dict><key>a</key></dict>"),
        document("<dict><key>a</key><key>b</key></dict>"),
        document("<array><key>a</key></array>"),
        document("<array>text</array>"),
        document("<dict>text<key>a</key><true/></dict>"),
        document("<integer/>"),
        document("<integer>9223372036854775808</integer>"),
        document("<integer>1.5</integer>"),
        document("<integer>+-1</integer>"),
        document("<integer>12 3</integer>"),
        document("<real>1,5</real>"),
        document("<real></real>"),
        document("<date>2023-02-29T00:00:00Z</date>"),
        document("<date>yesterday</date>"),
        document("<data>A*B=</data>"),
        document("<data>AAA</data>"),
        document("<true>x</true>"),
        document("<string>&unknown;</string>"),
        document("<string>&amp</string>"),
        document("<string>&#0;</string>"),
        document("<string>&#xD800;</string>"),
        document("<string><b/></string>"),
        document("<string>\xff</string>"),
        document("<string>bell\a</string>"),
        document(std::string("<string>a\0b</string>", 20)),
        "bplist00",
        "<!DOCTYPE p [<!ENTITY a \"aaaa\"><!ENTITY b "
        "\"&a;&a;\">]><plist><string>&b;</string></plist>",
    };
    for (const std::string& text : malformed) {
        const auto result = ReadPropertyList(text);
        EXPECT_EQ(result.value, std::nullopt) << text;
        EXPECT_NE(result.error, "") << text;
    }
}

TEST(PropertyList, BoundsHold) {
    const auto nested = [](std::size_t depth) {
        std::string text;
        for (std::size_t i = 0; i < depth; ++i)
            text += "<array>";
        for (std::size_t i = 0; i < depth; ++i)
            text += "</array>";
        return text;
    };
    EXPECT_TRUE(read(nested(200)));
    EXPECT_TRUE(WritePropertyList(*read(nested(512))));
    EXPECT_FALSE(read(nested(513)));
    EXPECT_FALSE(ReadPropertyList(nested(1'000'000)).value);
    Value tooDeep = Array{};
    for (int i = 0; i < 512; ++i)
        tooDeep = Array{std::move(tooDeep)};
    EXPECT_FALSE(WritePropertyList(tooDeep));

    const quelm::PropertyListLimits small{.bytes = 200, .depth = 4, .objects = 5};
    EXPECT_TRUE(ReadPropertyList("<array><true/><true/><true/><true/></array>", small).value);
    EXPECT_FALSE(
        ReadPropertyList("<array><true/><true/><true/><true/><true/></array>", small).value);
    EXPECT_FALSE(ReadPropertyList(std::string(201, ' '), small).value);
    std::string huge = "<plist><string>";
    huge.resize(quelm::PropertyListLimits{}.bytes + 1, 'x');
    EXPECT_FALSE(ReadPropertyList(huge).value);
}

TEST(PropertyList, WhatNoReaderWouldTakeIsNotWritten) {
    for (const Value& value :
         {Value("\x01"), Value("\xff"), Value(std::string("a\0b", 3)), Value("\uFFFE"),
          Value(Date{1e20}), Value(Date{std::nan("")}), Value(Dictionary{{"\a", 1}})}) {
        EXPECT_EQ(WritePropertyList(value), std::nullopt) << value;
        EXPECT_EQ(WritePropertyList(Array{value}), std::nullopt) << value;
    }
}

TEST(Base64, EveryLengthComesBack) {
    std::string bytes;
    for (int i = 0; i < 300; ++i) {
        EXPECT_EQ(quelm::DecodeBase64(quelm::EncodeBase64(bytes)), bytes);
        bytes += static_cast<char>(i * 7);
    }
    EXPECT_EQ(quelm::EncodeBase64("foobar!"), "Zm9vYmFyIQ==");
    for (const char* wrong : {"A", "AA", "AA=", "AA=A", "AA===", "=", "AA AA A"}) {
        EXPECT_EQ(quelm::DecodeBase64(wrong), std::nullopt) << wrong;
    }
}

TEST(IsoDate, CoversTheYearsOneTo9999) {
    for (const char* text : {"0001-01-01T00:00:00Z", "1969-12-31T23:59:59Z", "2000-02-29T12:00:00Z",
                             "9999-12-31T23:59:59Z"}) {
        const auto seconds = quelm::ParseIsoDate(text);
        ASSERT_TRUE(seconds) << text;
        EXPECT_EQ(quelm::FormatIsoDate(static_cast<double>(*seconds)), text);
        EXPECT_EQ(quelm::FormatIsoDate(static_cast<double>(*seconds) + 0.5), text);
    }
    EXPECT_EQ(quelm::ParseIsoDate("2001-01-01T00:00:00Z"), 978'307'200);
    EXPECT_EQ(quelm::FormatIsoDate(253'402'300'800), std::nullopt);
}

}  // namespace

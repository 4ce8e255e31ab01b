#include <climits>
#include <cstdint>
#include <gtest/gtest.h>
#include <locale>
#include <sstream>

#include "foundation/texts/TextDecoder.h"

namespace {

using namespace quelm;
using namespace std::string_literals;

enum class Action : std::uint8_t { Remove = 1, Move = 3 };
enum class Offset : int { Before = -1 };

template <class T>
void expectText(const T& value, const std::string& text) {
    std::stringstream stream;
    stream << std::hex << std::showbase << std::showpos;  // play no part
    CTextEncoder(stream) << value;
    EXPECT_EQ(stream.str(), text);
    T decoded{};
    CTextDecoder(stream) >> decoded;
    EXPECT_EQ(decoded, value) << text;
}

TEST(TextCoding, EachValueHasOneTextAndComesBackFromIt) {
    expectText(ULONG_MAX, "18446744073709551615:");
    expectText(LLONG_MIN, "-9223372036854775808:");
    expectText("a:b"s, "3:a:b");
    expectText(""s, "0:");
    expectText("1\n\0\xFFü"s, "6:1\n\0\xFFü"s);
    expectText(Action{77}, "77:");
    expectText(Offset::Before, "-1:");
    expectText(std::vector<Action>{}, "0:");
    expectText(std::vector{Action::Remove, Action::Move}, "2:1:3:");
    const std::string chunks = std::string(65'535, 'x') + "ab" + std::string(65'536, 'y') + "c";
    expectText(chunks, "131074:" + chunks);
}

TEST(TextCoding, ARecordIsReadInOrderAndAnyCharacterSeparatesItsNumbers) {
    std::istringstream in("12x-34:2:a:0:");
    unsigned long first = 0;
    long long second = 0;
    std::string text;
    std::string empty = "old";
    CTextDecoder(in) >> first >> second >> text >> empty;
    EXPECT_EQ(std::tie(first, second, text, empty), std::tuple(12U, -34, "a:"s, ""s));
}

/// The message, which the stream's own exceptions do not hide; the target keeps what it had.
template <class T>
std::string failureOf(const std::string& text, const T& before) {
    std::istringstream in(text);
    in.exceptions(std::ios::failbit | std::ios::eofbit);
    T value = before;
    try {
        CTextDecoder(in) >> value;
    } catch (const CTextDecodingException& failure) {
        EXPECT_EQ(value, before) << text;
        EXPECT_THROW(CTextDecoder(in) >> value, CTextDecodingException) << text;
        return failure.what();
    }
    return "none";
}

TEST(TextCoding, AFailureNamesItsOperationAndLeavesTheTarget) {
    const auto operation = "quelm::CTextDecoder &quelm::CTextDecoder::operator>>"s;
    const std::string ofUnsigned = operation + "(T &) [T = unsigned long]";
    for (const auto* text : {"", "12", "x:", "-:", "18446744073709551616:", ":"}) {
        EXPECT_EQ(failureOf(text, 5UL), ofUnsigned) << text;
        EXPECT_EQ(failureOf(text, "old"s), ofUnsigned) << text;
    }
    for (const auto* text : {"", "-12", "x:", "9223372036854775808:"})
        EXPECT_EQ(failureOf(text, 5LL), operation + "(T &) [T = long long]") << text;
    for (const auto* text : {"4:abc", "1:", "18446744073709551615:abc", "70000:abc"})
        EXPECT_EQ(failureOf(text, "old"s), operation + "(std::string &)") << text;
    for (const auto* text : {"2:1:", "2:1:3", "1:x:", "18446744073709551615:1:3:"})
        EXPECT_EQ(failureOf(text, std::vector{Action::Move}), ofUnsigned) << text;
}

TEST(TextCoding, TheLocalePlaysNoPart) {
    struct GroupedDigits : std::numpunct<char> {
        char do_thousands_sep() const override { return ':'; }
        std::string do_grouping() const override { return "\1"; }
    };
    const std::locale grouped({}, std::make_unique<GroupedDigits>().release());
    const std::locale before = std::locale::global(grouped);
    expectText(1234567UL, "1234567:");
    expectText(-7654321LL, "-7654321:");
    std::locale::global(before);
}

}  // namespace

#include <climits>
#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>

#include "foundation/texts/TextDecoder.h"
#include "foundation/texts/TextEncoder.h"

namespace quelm {

namespace {

enum class Action : std::uint8_t { None = 0, Remove = 1, Move = 3 };
enum class Offset : int { Before = -1, After = 1 };

constexpr auto unsignedOperation =
    "quelm::CTextDecoder &quelm::CTextDecoder::operator>>(T &) [T = unsigned long]";
constexpr auto signedOperation =
    "quelm::CTextDecoder &quelm::CTextDecoder::operator>>(T &) [T = long long]";
constexpr auto stringOperation =
    "quelm::CTextDecoder &quelm::CTextDecoder::operator>>(std::string &)";

std::string encode(const auto&... values) {
    std::ostringstream out;
    CTextEncoder encoder(out);
    (encoder << ... << values);
    return out.str();
}

template <class T>
T decode(const std::string& text) {
    std::istringstream in(text);
    T value{};
    CTextDecoder(in) >> value;
    return value;
}

/// The message of the failure; the target must have kept what it had.
template <class T>
std::string failureOf(const std::string& text, T before = {}) {
    std::istringstream in(text);
    T value = before;
    try {
        CTextDecoder(in) >> value;
    } catch (const CTextDecodingException& failure) {
        EXPECT_EQ(value, before) << text;
        EXPECT_FALSE(in.good()) << text;
        return failure.what();
    }
    return "none";
}

TEST(TextCoding, EachValueHasOneTextAndComesBackFromIt) {
    EXPECT_EQ(encode(0UL), "0:");
    EXPECT_EQ(encode(ULONG_MAX), "18446744073709551615:");
    EXPECT_EQ(encode(LLONG_MIN), "-9223372036854775808:");
    EXPECT_EQ(encode(-1, 2U, std::int8_t{-3}), "-1:2:-3:");
    EXPECT_EQ(encode("a:b"), "3:a:b");
    EXPECT_EQ(encode(""), "0:");
    EXPECT_EQ(encode(Action::Move, Offset::Before), "3:-1:");
    EXPECT_EQ(encode(std::vector<Action>()), "0:");
    EXPECT_EQ(encode(std::vector{Action::Remove, Action::Move}), "2:1:3:");

    EXPECT_EQ(decode<unsigned long>("18446744073709551615:"), ULONG_MAX);
    EXPECT_EQ(decode<long long>("-9223372036854775808:"), LLONG_MIN);
    EXPECT_EQ(decode<std::string>("3:a:b"), "a:b");
    EXPECT_EQ(decode<std::string>("0:"), "");
    EXPECT_EQ(decode<Action>("3:"), Action::Move);
    EXPECT_EQ(decode<Offset>("-1:"), Offset::Before);
    EXPECT_EQ(decode<Action>("77:"), Action{77});
    EXPECT_EQ(decode<std::vector<Action>>("2:1:3:"), (std::vector{Action::Remove, Action::Move}));
}

TEST(TextCoding, ARecordIsReadInTheOrderOfWriting) {
    using namespace std::string_literals;
    const std::string path = "/a:1\n\0/\xFFü"s;
    const std::vector<Action> actions = {Action::Move, Action::None};
    std::istringstream in(encode(7LL, path, "", Offset::Before, actions, 9UL));

    long long id = 0;
    std::string readPath;
    std::string fileId = "old";
    Offset offset{};
    std::vector<Action> readActions = {Action::Remove};
    unsigned long last = 0;
    CTextDecoder(in) >> id >> readPath >> fileId >> offset >> readActions >> last;

    EXPECT_EQ(id, 7);
    EXPECT_EQ(readPath, path);
    EXPECT_EQ(fileId, "");
    EXPECT_EQ(offset, Offset::Before);
    EXPECT_EQ(readActions, actions);
    EXPECT_EQ(last, 9U);
    EXPECT_TRUE(in.good());
}

TEST(TextCoding, WhateverFollowsANumberIsTakenAsItsSeparator) {
    std::istringstream in("12x34:");
    unsigned long first = 0;
    long long second = 0;
    CTextDecoder(in) >> first >> second;
    EXPECT_EQ(first, 12U);
    EXPECT_EQ(second, 34);
}

TEST(TextCoding, AStringOfManyChunksComesBackWhole) {
    std::string text(200'000, 'x');
    text[65'535] = 'a';
    text[65'536] = 'b';
    text.back() = 'c';
    EXPECT_EQ(decode<std::string>(encode(text)), text);
}

TEST(TextCoding, AFailureNamesItsOperationAndLeavesTheTarget) {
    for (const auto text : {"", "12", "x:", "-:", "18446744073709551616:", ":"}) {
        EXPECT_EQ(failureOf<unsigned long>(text, 5), unsignedOperation) << text;
        EXPECT_EQ(failureOf<std::string>(text, "old"), unsignedOperation) << text;
        EXPECT_EQ(failureOf<Action>(text, Action::Move), unsignedOperation) << text;
        EXPECT_EQ(failureOf<std::vector<Action>>(text, {Action::Move}), unsignedOperation) << text;
    }
    for (const auto text : {"", "-12", "x:", "9223372036854775808:", "-9223372036854775809:"}) {
        EXPECT_EQ(failureOf<long long>(text, 5), signedOperation) << text;
        EXPECT_EQ(failureOf<Offset>(text, Offset::After), signedOperation) << text;
    }
    for (const auto text : {"4:abc", "1:", "18446744073709551615:abc", "70000:abc"}) {
        EXPECT_EQ(failureOf<std::string>(text, "old"), stringOperation) << text;
    }
    for (const auto text : {"2:1:", "2:1:3", "1:x:", "18446744073709551615:1:3:"}) {
        EXPECT_EQ(failureOf<std::vector<Action>>(text, {Action::Move}), unsignedOperation) << text;
    }
    EXPECT_EQ(failureOf<std::vector<Offset>>("2:1:"), signedOperation);
}

TEST(TextCoding, NothingIsReadAfterAFailure) {
    std::istringstream in("x:1:");
    CTextDecoder decoder(in);
    unsigned long value = 0;
    EXPECT_THROW(decoder >> value, CTextDecodingException);
    EXPECT_THROW(decoder >> value, CTextDecodingException);
    in.clear();
    in.str("1:");
    in.setstate(std::ios::failbit);
    EXPECT_THROW(CTextDecoder(in) >> value, CTextDecodingException);
}

TEST(TextCoding, AStreamThatThrowsDoesNotHideTheFailedOperation) {
    std::istringstream in("x");
    in.exceptions(std::ios::failbit | std::ios::badbit | std::ios::eofbit);
    CTextDecoder decoder(in);
    unsigned long value = 0;
    EXPECT_THROW(decoder >> value, CTextDecodingException);
}

struct GroupedDigits : std::numpunct<char> {
    GroupedDigits() : numpunct(1) {}  // locales do not own it
    char do_thousands_sep() const override { return ':'; }
    std::string do_grouping() const override { return "\1"; }
};

TEST(TextCoding, LocaleAndFormatFlagsPlayNoPart) {
    static GroupedDigits facet;
    const std::locale grouped(std::locale::classic(), &facet);
    const std::locale before = std::locale::global(grouped);
    std::stringstream stream;
    stream.imbue(grouped);
    stream << std::hex << std::showbase << std::showpos << std::setw(20);
    CTextEncoder(stream) << 1234567UL << -7654321LL << "text";
    EXPECT_EQ(stream.str(), "1234567:-7654321:4:text");

    unsigned long first = 0;
    long long second = 0;
    stream >> std::hex >> std::noskipws;
    CTextDecoder(stream) >> first >> second;
    std::locale::global(before);
    EXPECT_EQ(first, 1234567U);
    EXPECT_EQ(second, -7654321);
    EXPECT_EQ(stream.getloc(), grouped);
}

}  // namespace

}  // namespace quelm

#include <array>
#include <gtest/gtest.h>
#include <string>

#include "foundation/texts/HexEncoding.h"

namespace quelm {

namespace {

using namespace std::string_literals;

TEST(HexEncoding, EveryByteBecomesTwoDigitsAndComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const std::string text = CHexEncoding::Encode(all);
    EXPECT_EQ(text.size(), 512U);
    EXPECT_EQ(text.substr(0, 8), "00010203");
    EXPECT_EQ(text.substr(504), "fcfdfeff");
    EXPECT_EQ(CHexEncoding::Decode(text), all);
    EXPECT_EQ(HexEncodeBytes(all.data(), all.size()), text);
    EXPECT_EQ(CHexEncoding::Encode(""), "");
    EXPECT_EQ(CHexEncoding::Decode(""), "");
    EXPECT_EQ(HexEncodeBytes(nullptr, 0), "");
}

TEST(HexEncoding, TakesPairsOfPointersAsWell) {
    const std::array<unsigned char, 2> bytes = {0x00, 0xFF};
    EXPECT_EQ(CHexEncoding::Encode(bytes.data(), bytes.data() + bytes.size()), "00ff");
    const std::array<unsigned char, 4> text = {'0', '0', 'f', 'f'};
    EXPECT_EQ(CHexEncoding::Decode(text.data(), text.data() + text.size()), "\x00\xFF"s);
    EXPECT_EQ(CHexEncoding::Encode(nullptr, nullptr), "");
}

TEST(HexEncoding, WhatIsNoDigitRepeatsTheByteBefore) {
    const struct {
        std::string text;
        std::string bytes;
    } cases[] = {
        {"abzz12", "\xAB\xAB\x12"s}, {"zz41", "\0A"s}, {"41g", "AA"s},
        {"4142c", "AB\x0C"s},        {"4g", "\x04"s},  {"AbCD", "\xAB\xCD"s},
        {"41\0f"s, "AA"s},
    };
    for (const auto& [text, bytes] : cases)
        EXPECT_EQ(CHexEncoding::Decode(text), bytes) << text;
}

}  // namespace

}  // namespace quelm

#include <gtest/gtest.h>

#include "foundation/texts/HexEncoding.h"

namespace {

using quelm::CHexEncoding;
using namespace std::string_literals;

TEST(HexEncoding, EveryByteBecomesTwoDigitsAndComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const std::string text = CHexEncoding::Encode(all);
    EXPECT_EQ(text.substr(0, 8) + text.substr(504), "00010203fcfdfeff");
    EXPECT_EQ(CHexEncoding::Decode(text), all);
    EXPECT_EQ(quelm::HexEncodeBytes(all.data(), all.size()), text);
    const unsigned char bytes[] = {'0', 0xFF};
    EXPECT_EQ(CHexEncoding::Encode(bytes, bytes + 2), "30ff");
    EXPECT_EQ(CHexEncoding::Decode(bytes, bytes + 1), "\0"s);
}

TEST(HexEncoding, WhatIsNoDigitRepeatsTheByteBefore) {
    const std::pair<std::string, std::string> cases[] = {
        {"abzz12", "\xAB\xAB\x12"s}, {"zz41", "\0A"s}, {"41g", "AA"s},        {"", ""s},
        {"4142c", "AB\x0C"s},        {"4g", "\x04"s},  {"AbCD", "\xAB\xCD"s}, {"41\0f"s, "AA"s},
    };
    for (const auto& [text, bytes] : cases)
        EXPECT_EQ(CHexEncoding::Decode(text), bytes) << text;
}

}  // namespace

#include <gtest/gtest.h>

#include "foundation/propertylist/PropertyList.h"

namespace {

using quelm::Array;
using quelm::Data;
using quelm::Date;
using quelm::Dictionary;
using quelm::ReadPropertyList;
using quelm::Value;

std::string bigEndian(std::uint64_t value, std::size_t bytes) {
    std::string text(bytes, '\0');
    for (; bytes > 0; value >>= 8U)
        text[--bytes] = static_cast<char>(value & 0xFFU);
    return text;
}

struct Trailer {
    std::uint64_t offsetSize = 2;
    std::uint64_t referenceSize = 1;
    std::optional<std::uint64_t> objects = {};
    std::uint64_t top = 0;
    std::optional<std::uint64_t> table = {};
};

/// A file of the objects, given as their bytes.
std::string binary(const std::vector<std::string>& objects, const Trailer& trailer = {}) {
    std::string file = "bplist00";
    std::string table;
    for (const std::string& object : objects) {
        table += bigEndian(file.size(), trailer.offsetSize);
        file += object;
    }
    const std::uint64_t tableStart = file.size();
    file += table + std::string(6, '\0') + bigEndian(trailer.offsetSize, 1) +
            bigEndian(trailer.referenceSize, 1) +
            bigEndian(trailer.objects.value_or(objects.size()), 8) + bigEndian(trailer.top, 8) +
            bigEndian(trailer.table.value_or(tableStart), 8);
    return file;
}

std::string bytes(std::initializer_list<int> values) {
    std::string text;
    for (const int value : values)
        text += static_cast<char>(value);
    return text;
}

TEST(BinaryPropertyList, EveryKindOfObjectIsRead) {
    const std::vector<std::pair<std::string, Value>> cases = {
        {bytes({0x08}), false},
        {bytes({0x09}), true},
        {bytes({0x10, 0xFF}), 255},
        {bytes({0x11, 0xFF, 0xFE}), 65534},
        {bytes({0x12, 0xFF, 0xFF, 0xFF, 0xFF}), 4294967295},
        {bytes({0x13}) + std::string(8, '\xff'), -1},
        {bytes({0x14}) + std::string(8, '\0') + bigEndian(INT64_MAX, 8), INT64_MAX},
        {bytes({0x14}) + std::string(16, '\xff'), -1},
        {bytes({0x22, 0x3F, 0xC0, 0, 0}), 1.5},
        {bytes({0x23, 0x3F, 0xF8, 0, 0, 0, 0, 0, 0}), 1.5},
        {bytes({0x33, 0x3F, 0xF8, 0, 0, 0, 0, 0, 0}), Date{978'307'201.5}},
        {bytes({0x42, 0, 0xFF}), Data{std::string("\0\xff", 2)}},
        {bytes({0x4F, 0x10, 3, 1, 2, 3}), Data{"\x01\x02\x03"}},
        {"\x52hi", "hi"},
        {bytes({0x62, 0x4E, 0x2D, 0, 'x'}), "\u4e2dx"},
        {bytes({0x62, 0xD8, 0x3D, 0xDE, 0x00}), "\U0001F600"},
        {bytes({0xA0}), Array{}},
        {bytes({0xD0}), Dictionary{}},
    };
    for (const auto& [object, value] : cases) {
        const auto result = ReadPropertyList(binary({object}));
        EXPECT_EQ(result.value, value) << result.error;
    }
    EXPECT_EQ(ReadPropertyList(
                  binary({bytes({0xD2, 1, 2, 3, 4}), "Qb", "Qa", bytes({0xA1, 4}), bytes({0x09})}))
                  .value,
              Value(Dictionary{{"a", true}, {"b", Array{true}}}));
}

TEST(BinaryPropertyList, DamagedFilesAreRefused) {
    const std::vector<std::string> damaged = {
        binary({}),
        binary({bytes({0x00})}),
        binary({bytes({0x80, 1})}),
        binary({bytes({0x14}) + bigEndian(0, 8) + bigEndian(UINT64_MAX, 8)}),
        binary({bytes({0x15}) + std::string(32, '\0')}),
        binary({bytes({0x13, 1})}),
        binary({bytes({0x33, 0x7F, 0xF0, 0, 0, 0, 0, 0, 0})}),
        binary({bytes({0x5F, 0x13, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})}),
        binary({bytes({0x5F, 0x53, 'a', 'b', 'c'})}),
        binary({bytes({0x5F})}),
        binary({bytes({0x51, 0xFF})}),
        binary({bytes({0x61, 0xD8, 0x00})}),
        binary({bytes({0x62, 0xD8, 0x00, 0x00, 0x41})}),
        binary({bytes({0xA1, 9})}),
        binary({bytes({0xD1, 1, 1}), bytes({0x10, 1})}),
        binary({bytes({0xAF, 0x13, 0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF})}),
        binary({bytes({0x09})}, {.offsetSize = 0, .objects = 1}),
        binary({bytes({0x09})}, {.offsetSize = 9}),
        binary({bytes({0x09})}, {.referenceSize = 0}),
        binary({bytes({0x09})}, {.objects = UINT64_MAX}),
        binary({bytes({0x09})}, {.top = 1}),
        binary({bytes({0x09})}, {.top = UINT64_MAX}),
        binary({bytes({0x09})}, {.table = UINT64_MAX}),
        binary({bytes({0x09})}, {.table = 3}),
    };
    for (std::size_t i = 0; i < damaged.size(); ++i) {
        const auto result = ReadPropertyList(damaged[i]);
        EXPECT_EQ(result.value, std::nullopt) << i;
        EXPECT_NE(result.error, "") << i;
    }
}

TEST(BinaryPropertyList, EveryTruncationIsRefused) {
    const std::string whole = binary({bytes({0xD1, 1, 2}), "Qa", bytes({0xA2, 3, 3}), "\x53xyz"});
    ASSERT_TRUE(ReadPropertyList(whole).value);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(ReadPropertyList(whole.substr(0, length)).value) << length;
    }
}

TEST(BinaryPropertyList, SharedAndCircularReferencesEndSoon) {
    EXPECT_FALSE(ReadPropertyList(binary({bytes({0xA1, 0})})).value) << "an array in itself";
    // 40 arrays that each hold the next one twice: 2^40 values from a file of 250 bytes
    std::vector<std::string> doubling;
    for (int i = 1; i <= 40; ++i)
        doubling.push_back(bytes({0xA2, i, i}));
    doubling.push_back(bytes({0x09}));
    EXPECT_FALSE(ReadPropertyList(binary(doubling)).value);
    // a long string that a thousand members share
    std::string many = bytes({0xAF, 0x11, 0x03, 0xE8}) + std::string(1000, '\1');
    const std::string shared =
        binary({many, bytes({0x5F, 0x12}) + bigEndian(100'000, 4) + std::string(100'000, 'x')},
               {.offsetSize = 4});
    EXPECT_FALSE(ReadPropertyList(shared).value);
}

}  // namespace

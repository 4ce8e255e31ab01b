#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

#include "config/PropertyAccess.h"

namespace {

using quelm::Array;
using quelm::Dictionary;
using quelm::Value;

TEST(PropertyAccess, NumbersOfAnyKindAreConverted) {
    constexpr auto longMax = std::numeric_limits<std::int64_t>::max();
    constexpr auto longMin = std::numeric_limits<std::int64_t>::min();
    struct Case {
        Value stored;
        std::int32_t asInt;
        std::int64_t asLong;
    };
    const std::vector<Case> cases = {
        {2.9, 2, 2},
        {-2.9, -2, -2},
        {7, 7, 7},
        {std::int64_t{0xFFFFFFFF}, -1, 0xFFFFFFFF},
        {longMin, 0, longMin},
        {1e300, std::numeric_limits<std::int32_t>::max(), longMax},
        {-1e300, std::numeric_limits<std::int32_t>::min(), longMin},
        {std::nan(""), 0, 0},
        // no numbers: the defaults
        {true, 5, 6},
        {"12", 5, 6},
    };
    for (const Case& c : cases) {
        const Dictionary properties{{"k", c.stored}};
        EXPECT_EQ(orv::GetIntPropertyWithDefault(properties, "k", 5), c.asInt) << c.stored;
        EXPECT_EQ(orv::GetLongPropertyWithDefault(properties, "k", 6), c.asLong) << c.stored;
    }
    EXPECT_EQ(orv::GetFloatProperty(Dictionary{{"k", 3}}, "k"), 3.0);
}

TEST(PropertyAccess, AMissingOrMistypedKeyGivesTheDefault) {
    const Dictionary properties{{"text", "t"}, {"number", 1}, {"flag", true}};
    EXPECT_EQ(orv::GetIntProperty(properties, "absent"), 0);
    EXPECT_TRUE(orv::GetBoolPropertyWithDefault(properties, "number", true));
    EXPECT_FALSE(orv::GetBoolProperty(properties, "text"));
    EXPECT_TRUE(orv::GetBoolProperty(properties, "flag"));
    EXPECT_EQ(orv::GetStringProperty(properties, "number"), std::nullopt);
    EXPECT_EQ(orv::GetStringPropertyWithDefault(properties, "absent", "d"), "d");
    EXPECT_EQ(orv::GetFilesystemStringProperty(properties, "text"), "t");
    EXPECT_EQ(orv::GetArrayProperty(properties, "absent"), nullptr);
    // containers are handed out unchecked
    EXPECT_EQ(*orv::GetDictionaryProperty(properties, "number"), Value(1));
    const Value fallback = Array{1};
    EXPECT_EQ(orv::GetArrayPropertyWithDefault(properties, "absent", &fallback), &fallback);
}

TEST(PropertyAccess, RowsThatAreNotThereHaveNoKeys) {
    const Array rows = {Dictionary{{"on", true}, {"name", "n"}}, "no row"};
    EXPECT_TRUE(orv::GetBoolPropertyWithDefaultForRowInArray(rows, 0, "on", false));
    EXPECT_EQ(orv::GetStringPropertyForRowInArray(rows, 0, "name"), "n");
    for (const std::size_t row : {std::size_t{1}, std::size_t{2}, SIZE_MAX}) {
        EXPECT_TRUE(orv::GetBoolPropertyWithDefaultForRowInArray(rows, row, "on", true));
        EXPECT_EQ(orv::GetStringPropertyForRowInArray(rows, row, "name"), std::nullopt);
    }
}

TEST(PropertyAccess, TextThatIsNotUtf8IsRefused) {
    Dictionary properties{{"k", "old"}};
    EXPECT_FALSE(orv::SetStringProperty(properties, "k", "\xff"));
    EXPECT_FALSE(orv::SetFilesystemStringProperty(properties, "k", "caf\xe9"));
    EXPECT_EQ(orv::GetStringProperty(properties, "k"), "old");
    EXPECT_TRUE(orv::SetStringProperty(properties, "k", "café"));
    orv::RemoveProperty(properties, "k");
    orv::RemoveProperty(properties, "k");
    EXPECT_TRUE(properties.empty());
}

}  // namespace

#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace quelm {

// Arithmetic that stops at the ends of its range, for numbers from outside.

[[nodiscard]] constexpr std::int64_t SaturatingSum(std::int64_t left, std::int64_t right) {
    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t sum = 0;
    if (!__builtin_add_overflow(left, right, &sum)) return sum;
    return right < 0 ? Limits::min() : Limits::max();
}

/// The same of sizes, which are never negative.
[[nodiscard]] constexpr std::uint64_t SaturatingTotal(std::uint64_t left, std::uint64_t right) {
    std::uint64_t total = 0;
    if (!__builtin_add_overflow(left, right, &total)) return total;
    return std::numeric_limits<std::uint64_t>::max();
}

[[nodiscard]] constexpr std::int64_t SaturatingDifference(std::int64_t left, std::int64_t right) {
    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t difference = 0;
    if (!__builtin_sub_overflow(left, right, &difference)) return difference;
    return right < 0 ? Limits::max() : Limits::min();
}

/// The nearest number of 32 bits.
[[nodiscard]] constexpr std::int32_t Narrowed(std::int64_t number) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

}  // namespace quelm
